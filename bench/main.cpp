// The benchmarks: Google Benchmark's own output, then a table of ratios.
#include "contest.h"
#include "contests.h"

#include <benchmark/benchmark.h>
#include <QApplication>

int main(int count, char** arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");              // the views that run in here need no screen
    qputenv("QT_LOGGING_RULES", "default.warning=false"); // what the offscreen platform lacks is no news
    const QApplication application(count, arguments);
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) {
        return 1;
    }
    addStartup();
    addMapView();
    addIniKey();
    addEventScript();
    addLists();
    addRunning();
    addPlayer();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    printTable();
    return 0;
}
