# Lays out the runnable folder: program, player, templates and documentation. What an author makes there
# (projets/, the boot script) is never touched: every step below only adds or replaces its own files.
add_executable(engine_text ${CMAKE_SOURCE_DIR}/tools/engine_text.cpp)
target_link_libraries(engine_text PRIVATE core)

# The engine is kept as readable UTF-8 sources; a project receives code page 1252 with CR LF.
set(engine_files
    "index.lua:ftgi.dat" "menustart.lua:ftgms.dat" "ram.lua:ftgr.dat" "map.lua:ftgm.dat"
    "ev.lua:ftgev.dat" "map01.map:ftgmma.dat" "map01.ev:ftgmev.dat")
set(staged)
foreach(pair IN LISTS engine_files)
    string(REPLACE ":" ";" pair "${pair}")
    list(GET pair 0 source)
    list(GET pair 1 target)
    add_custom_command(
        OUTPUT "${QUESTFORGE_APPDIR}/data/${target}"
        COMMAND ${CMAKE_COMMAND} -E make_directory "${QUESTFORGE_APPDIR}/data"
        COMMAND engine_text "${CMAKE_SOURCE_DIR}/engine/${source}" "${QUESTFORGE_APPDIR}/data/${target}"
        DEPENDS engine_text "${CMAKE_SOURCE_DIR}/engine/${source}"
        VERBATIM)
    list(APPEND staged "${QUESTFORGE_APPDIR}/data/${target}")
endforeach()

# Pictures and pages are copied one by one, so that a removed copy comes back at the next build.
file(GLOB_RECURSE shipped CONFIGURE_DEPENDS RELATIVE "${CMAKE_SOURCE_DIR}" "${CMAKE_SOURCE_DIR}/data/*"
     "${CMAKE_SOURCE_DIR}/Doc/*")
foreach(file IN LISTS shipped)
    add_custom_command(
        OUTPUT "${QUESTFORGE_APPDIR}/${file}"
        COMMAND ${CMAKE_COMMAND} -E copy "${CMAKE_SOURCE_DIR}/${file}" "${QUESTFORGE_APPDIR}/${file}"
        DEPENDS "${CMAKE_SOURCE_DIR}/${file}"
        VERBATIM)
    list(APPEND staged "${QUESTFORGE_APPDIR}/${file}")
endforeach()

set_target_properties(questforge luaplayer PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${QUESTFORGE_APPDIR}")
# The player has this name on every system: the test run starts it by this name.
set_target_properties(luaplayer PROPERTIES OUTPUT_NAME "luaplayer.exe" SUFFIX "")

# The sample game is no output of the build, or "clean" would take an author's changes with it: at each build
# its maker looks whether the folder is there, and then leaves it alone.
add_executable(make_sample
    ${CMAKE_SOURCE_DIR}/tools/sample/commands.cpp ${CMAKE_SOURCE_DIR}/tools/sample/main.cpp
    ${CMAKE_SOURCE_DIR}/tools/sample/making.cpp ${CMAKE_SOURCE_DIR}/tools/sample/source.cpp
    ${CMAKE_SOURCE_DIR}/tools/sample/sourcelines.cpp)
target_link_libraries(make_sample PRIVATE core)
set_target_properties(make_sample PROPERTIES AUTOMOC OFF AUTORCC OFF)

# What a new project is made from; enough for those who only make projects.
add_custom_target(templates DEPENDS ${staged})

add_custom_target(stage ALL
    COMMAND make_sample "${CMAKE_SOURCE_DIR}/tools/sample/letter" "${QUESTFORGE_APPDIR}"
    DEPENDS questforge luaplayer
    COMMENT "Making the sample game where it is missing"
    VERBATIM)
add_dependencies(stage templates)
