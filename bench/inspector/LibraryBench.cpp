// Benchmarks of the object library on a catalogue of 2,000 coins, all in one
// tab, the worst case for one list:
// - a keystroke in the filter: the cells the new text keeps (must stay
//   under 10 ms, so typing never waits);
// - the cells of the tab, made when the tab is shown or the catalogue changes.
#include <stagewright/inspector/ObjectLibrary.h>

#include <tessaro/model/ConfigFiles.h>

#include <benchmark/benchmark.h>

#include <QString>

#include <random>

using namespace stagewright;
using tessaro::sceneObjectType;

namespace {

constexpr int entries = 2000;

/// Names like "Coin Gold 0412 spinning", in a shuffled order.
void makeCatalogue()
{
    static const char* metals[] = {"Gold", "Silver", "Bronze", "Ruby", "Emerald"};
    static const char* moves[] = {"spinning", "still", "bouncing", "floating"};
    std::vector<tessaro::GenericObject> catalogue;
    catalogue.reserve(entries);
    for (int i = 0; i < entries; ++i) {
        tessaro::GenericObject record;
        record.id = tessaro::Uuid::create();
        record.elementName = QStringLiteral("Coin %1 %2 %3")
                                 .arg(QLatin1String(metals[i % 5]))
                                 .arg(i, 4, 10, QLatin1Char('0'))
                                 .arg(QLatin1String(moves[i % 4]))
                                 .toStdString();
        record.sceneObjectType = "coin";
        record.image = "coin_" + std::to_string(i % 40);
        record.imageType = "png";
        record.objectClassType = "collectible";
        record.useGravity = i % 2 == 0;
        record.isDynamic = false;
        catalogue.push_back(std::move(record));
    }
    std::shuffle(catalogue.begin(), catalogue.end(), std::mt19937(42));
    tessaro::objectCatalogue() = std::move(catalogue);
}

/// One keystroke: the filter grows by a letter, round the typed word.
void BM_LibraryFilterKeystroke(benchmark::State& state)
{
    makeCatalogue();
    const std::vector<LibraryCell> cells = libraryCells(sceneObjectType::coin);
    const QString typed = QStringLiteral("Gold 04");
    qsizetype length = 0;
    std::size_t kept = 0;
    for (auto _ : state) {
        length = length % typed.size() + 1;
        kept += filterLibraryCells(cells, typed.left(length)).size();
    }
    benchmark::DoNotOptimize(kept);
    state.counters["cells"] = double(cells.size());
}
BENCHMARK(BM_LibraryFilterKeystroke)->Unit(benchmark::kMillisecond);

void BM_LibraryCellsOfTab(benchmark::State& state)
{
    makeCatalogue();
    std::size_t made = 0;
    for (auto _ : state)
        made += libraryCells(sceneObjectType::coin).size();
    benchmark::DoNotOptimize(made);
}
BENCHMARK(BM_LibraryCellsOfTab)->Unit(benchmark::kMillisecond);

} // namespace
