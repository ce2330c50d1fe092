// Input: the text of a cell's event file.
#include "target.h"
#include "tests/core/appdir.h"

#include "events/eventstore.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TemporaryAppDir app;
    const Path file = app.at("event");
    std::vector<std::string> entries = EventEntries(TextOf(data, size));
    std::erase(entries, "");

    saveevent(file, entries);
    Require(loadevent(file) == entries, "what was saved is loaded");
    const std::string written = ReadWholeFile(file);
    saveevent(file, loadevent(file));
    Require(ReadWholeFile(file) == written, "saving what was loaded changes no byte");
    return 0;
}
