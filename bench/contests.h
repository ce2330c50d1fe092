/// The contests, each group in its own file. Adding them runs nothing.
#pragma once

/// The staged program up to its shown window, beside an empty one.
void addStartup();
/// Drawing, the idle tick, a painted click and loading, in a real map editor view.
void addMapView();
/// ev.lua of 1 to 1000 maps with no, some and all event files.
void addEventScript();
/// One key read from descriptors of three lengths.
void addIniKey();
/// The variables view, variables.lua and the control panel of long projects.
void addLists();
/// Memory and idle processor time of the running program, without and with map views.
void addRunning();
/// The player: a frame's processor time, and the way from "Test Game" to the first picture.
void addPlayer();
