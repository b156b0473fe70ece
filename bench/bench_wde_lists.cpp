// Loading and saving a WDE record with large item lists.
#include <WDE.h>

#include <benchmark/benchmark.h>

using namespace KELMORA;

namespace {

WDE RecordWithItems(int itemsPerList) {
    WDE wde;
    wde.SetMode(WDE::MODE_DETX);
    for (int i = 0; i < itemsPerList; ++i) {
        WDE_Exciter exciter(i);
        exciter.SetSignalType(WDE_Exciter::FSK2);
        exciter.SetSymbolRate(1e3 + i);
        exciter.SetLevel(-10);
        wde.GetExciterList().append(exciter);
        WDE_Rasterdetector raster(i);
        raster.SetFrequencyList(QVector<double>(16, 1e6 + i));
        wde.GetRasterdetectorList().append(raster);
        WDE_Simulation simulation(i);
        simulation.SetRelativeFrequencyList(QVector<double>(8, 0.5 * i));
        wde.GetSimulationList().append(simulation);
        WDE_Singlechanneldetector detector(i);
        detector.SetFrequency(2e9 + i);
        wde.GetSinglechanneldetectorList().append(detector);
    }
    return wde;
}

void LoadWDE(benchmark::State& state) {
    const QString xml = RecordWithItems(static_cast<int>(state.range(0))).GetXmlString();
    for (auto _ : state) {
        WDE wde;
        wde.SetXmlString(xml);
        benchmark::DoNotOptimize(wde.GetExciterList().size());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0) * 4);
    state.SetBytesProcessed(state.iterations() * xml.size() * 2);
}

void SaveWDE(benchmark::State& state) {
    const WDE wde = RecordWithItems(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(wde.GetXmlString());
    state.SetItemsProcessed(state.iterations() * state.range(0) * 4);
}

} // namespace

BENCHMARK(LoadWDE)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveWDE)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
