// Input: an event script, as a project may hold it. The engine around it is a small one.
#include "target.h"
#include "tests/player/harness.h"

namespace
{

constexpr std::string_view engine = R"(
hero = {x = 1, y = 1, vie = 10}
var = {[1] = "0"}
function affichertexte(text) screen:print(0, 0, tostring(text), Color.new(255, 255, 255)) screen.flip() end
function runmap(name) map = name end
pcall(dofile, "ev.lua")
if runev then
    pcall(runev, 1, 1, "01")
    runev(2, 9, "02")
end
)";

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace player;
    constexpr testing::Frame end = 1; // more only costs time
    const testing::TempFolder folder;
    folder.write("index.lua", engine);
    folder.write("ev.lua", TextOf(data, size));
    testing::PlayerRun run(folder.path());
    const Outcome outcome = run.play(end);
    Require(outcome != Outcome::Failed || !run.error().empty(), "a failure has a message");
    Require(run.frame() <= end + 1, "a closed game ends");
    return 0;
}
