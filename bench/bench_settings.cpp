// SPDX-License-Identifier: MIT
// Loading and saving whole settings documents: the library against the bare
// XML stream (the floor) and against QDom, on the very same documents.
//
// Benchmarks are named <operation>/<contender>/<items>, for example
// load-string/library/10000. bench/run turns their JSON output into the
// table of the README.
//
// Besides the benchmarks, the binary has modes for measuring memory and for
// profiling one operation (see Usage()).
#include "BenchDocuments.h"

#include <Exciter_Settings.h>
#include <KelmoraException.h>
#include <SettingsLint.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using namespace KELMORA;

namespace {

const int kSizes[] = {1000, 10000, 100000};

[[noreturn]] void Fail(const QString& message) {
    std::fprintf(stderr, "exciter_settings_bench: %s\n", qPrintable(message));
    std::exit(1);
}

// What one operation leaves behind (a loaded tree, a written text); released
// outside the measured time where the benchmark says so.
using Kept = std::shared_ptr<void>;

// Keeps checksums alive without the optimiser seeing through them.
void Sink(qint64 value) {
    benchmark::DoNotOptimize(value);
}

QTemporaryDir& WorkDir() {
    static QTemporaryDir dir(QDir::tempPath() + QStringLiteral("/exciter-settings-bench-XXXXXX"));
    if (!dir.isValid())
        Fail(QStringLiteral("cannot create a temporary directory"));
    return dir;
}

QByteArray ReadFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        Fail(QStringLiteral("cannot read %1").arg(path));
    return file.readAll();
}

// One document of `items` items in every form the contenders need, checked
// once so that all of them work on the same text.
struct Fixture {
    explicit Fixture(int itemCount);

    int items;
    QString text;
    QByteArray bytes; // the file: the text in UTF-8
    QString path;
    // The same settings indented by tabs: a text the library would not write,
    // which the lint compares setting by setting.
    QString reindentedPath;
    QString savePath;
    QVector<bench::WriteStep> steps;
    Exciter_Settings loaded; // the tree read from the text
};

Fixture::Fixture(int itemCount)
    : items(itemCount), path(WorkDir().filePath(QStringLiteral("settings-%1.xml").arg(itemCount))),
      reindentedPath(WorkDir().filePath(QStringLiteral("tabs-%1.xml").arg(itemCount))),
      savePath(WorkDir().filePath(QStringLiteral("saved-%1.xml").arg(itemCount))) {
    try {
        const Exciter_Settings made = bench::MakeSettings(items);
        made.Check();
        made.SaveXml(path);
        text = made.GetXmlString();
        bytes = ReadFile(path);
        if (bytes != text.toUtf8())
            Fail(QStringLiteral("SaveXml and GetXmlString disagree"));
        loaded.SetXmlString(text);
        if (loaded.GetXmlString() != text)
            Fail(QStringLiteral("the document does not read back to itself"));
        Exciter_Settings fromFile;
        fromFile.LoadXml(path);
        if (fromFile.GetXmlString() != text)
            Fail(QStringLiteral("LoadXml reads another tree than SetXmlString"));
        steps = bench::StepsOf(text);
        QFile reindented(reindentedPath);
        if (!reindented.open(QIODevice::WriteOnly) ||
            reindented.write(
                QString(text).replace(QLatin1String("    "), QLatin1String("\t")).toUtf8()) < 0)
            Fail(QStringLiteral("cannot write %1").arg(reindentedPath));
    } catch (const KelmoraException& failure) {
        Fail(failure.GetMessage());
    } catch (const std::exception& failure) {
        Fail(QString::fromLocal8Bit(failure.what()));
    }

    QByteArray written;
    QBuffer buffer(&written);
    buffer.open(QIODevice::WriteOnly);
    QXmlStreamWriter writer(&buffer);
    bench::WriteSteps(writer, steps);
    if (written != bytes)
        Fail(QStringLiteral("the bare writer does not reproduce the document"));

    try {
        QXmlStreamReader reader(text);
        const qint64 floorTexts = bench::WalkReader(reader);
        QDomDocument dom;
        const qint64 domTexts = bench::LoadWithDom(dom, text);
        if (domTexts != floorTexts)
            Fail(QStringLiteral("QDom and the bare reader take different texts (%1, %2)")
                     .arg(domTexts)
                     .arg(floorTexts));
    } catch (const std::exception& failure) {
        Fail(QString::fromLocal8Bit(failure.what()));
    }
}

const Fixture& FixtureFor(int items) {
    static std::map<int, std::unique_ptr<Fixture>> fixtures;
    std::unique_ptr<Fixture>& fixture = fixtures[items];
    if (!fixture)
        fixture = std::make_unique<Fixture>(items);
    return *fixture;
}

QSaveFile* OpenSaveFile(QSaveFile& file) {
    if (!file.open(QIODevice::WriteOnly))
        Fail(QStringLiteral("cannot write %1").arg(file.fileName()));
    return &file;
}

void Commit(QSaveFile& file) {
    if (!file.commit())
        Fail(QStringLiteral("cannot commit %1").arg(file.fileName()));
}

// ---- the operations -------------------------------------------------------

Kept LibraryLoadString(const Fixture& f) {
    auto settings = std::make_shared<Exciter_Settings>();
    settings->SetXmlString(f.text);
    return settings;
}

Kept LibraryLoadFile(const Fixture& f) {
    auto settings = std::make_shared<Exciter_Settings>();
    settings->LoadXml(f.path);
    return settings;
}

Kept FloorLoadString(const Fixture& f) {
    QXmlStreamReader reader(f.text);
    Sink(bench::WalkReader(reader));
    return nullptr;
}

Kept FloorLoadFile(const Fixture& f) {
    QFile file(f.path);
    if (!file.open(QIODevice::ReadOnly))
        Fail(QStringLiteral("cannot read %1").arg(f.path));
    QXmlStreamReader reader(&file);
    Sink(bench::WalkReader(reader));
    return nullptr;
}

Kept DomLoadString(const Fixture& f) {
    auto dom = std::make_shared<QDomDocument>();
    Sink(bench::LoadWithDom(*dom, f.text));
    return dom;
}

Kept DomLoadFile(const Fixture& f) {
    QFile file(f.path);
    if (!file.open(QIODevice::ReadOnly))
        Fail(QStringLiteral("cannot read %1").arg(f.path));
    auto dom = std::make_shared<QDomDocument>();
    Sink(bench::LoadWithDom(*dom, file));
    return dom;
}

Kept LibrarySaveString(const Fixture& f) {
    return std::make_shared<QString>(f.loaded.GetXmlString());
}

Kept LibrarySaveFile(const Fixture& f) {
    f.loaded.SaveXml(f.savePath);
    return nullptr;
}

// The cheapest way to a QString: the writer writes UTF-16 straight into it.
Kept FloorSaveString(const Fixture& f) {
    auto text = std::make_shared<QString>();
    QXmlStreamWriter writer(text.get());
    bench::WriteSteps(writer, f.steps);
    return text;
}

// The same guarantee as SaveXml: the target is replaced only once complete.
Kept FloorSaveFile(const Fixture& f) {
    QSaveFile file(f.savePath);
    QXmlStreamWriter writer(OpenSaveFile(file));
    bench::WriteSteps(writer, f.steps);
    Commit(file);
    return nullptr;
}

Kept DomSaveString(const Fixture& f) {
    return std::make_shared<QString>(bench::SaveWithDom(f.steps));
}

Kept DomSaveFile(const Fixture& f) {
    QSaveFile file(f.savePath);
    bench::SaveWithDom(f.steps, *OpenSaveFile(file));
    Commit(file);
    return nullptr;
}

// Lists are shared until one side changes them (QVector), so a copy is cheap.
Kept LibraryCopy(const Fixture& f) {
    return std::make_shared<Exciter_Settings>(f.loaded);
}

// A copy whose lists are then made its own, as the first change to each
// list would do.
Kept LibraryCopyDetached(const Fixture& f) {
    auto copy = std::make_shared<Exciter_Settings>(f.loaded);
    WDE& wde = copy->GetWDE();
    wde.GetSinglechanneldetectorList().detach();
    wde.GetRasterdetectorList().detach();
    wde.GetExciterList().detach();
    wde.GetSimulationList().detach();
    return copy;
}

// The lint loads the file into a record and writes it back; a file that is
// the very text written skips the comparison, any other is compared
// setting by setting.
void Lint(const QString& path) {
    const QVector<LintFinding> findings = SettingsLint::LintXmlFile(path);
    if (!findings.isEmpty())
        Fail(QStringLiteral("the lint found %1 in the benchmark document: %2")
                 .arg(findings.size())
                 .arg(findings.first().message));
}

Kept LibraryLintFile(const Fixture& f) {
    Lint(f.path);
    return nullptr;
}

Kept LibraryLintReindented(const Fixture& f) {
    Lint(f.reindentedPath);
    return nullptr;
}

Kept LibraryCheck(const Fixture& f) {
    f.loaded.Check();
    return nullptr;
}

struct Operation {
    const char* name;
    const char* contender;
    Kept (*run)(const Fixture&);
    // Whether what the operation leaves (a tree) is released outside the
    // measured time: loading is measured without the later destruction.
    bool releaseUntimed;
};

const Operation kOperations[] = {
    {"load-string", "library", LibraryLoadString, true},
    {"load-string", "floor", FloorLoadString, true},
    {"load-string", "qdom", DomLoadString, true},
    {"load-file", "library", LibraryLoadFile, true},
    {"load-file", "floor", FloorLoadFile, true},
    {"load-file", "qdom", DomLoadFile, true},
    {"save-string", "library", LibrarySaveString, false},
    {"save-string", "floor", FloorSaveString, false},
    {"save-string", "qdom", DomSaveString, false},
    {"save-file", "library", LibrarySaveFile, false},
    {"save-file", "floor", FloorSaveFile, false},
    {"save-file", "qdom", DomSaveFile, false},
    {"copy", "library", LibraryCopy, false},
    {"copy-detached", "library", LibraryCopyDetached, true},
    {"check", "library", LibraryCheck, false},
    {"lint-file", "library", LibraryLintFile, false},
    {"lint-reindented", "library", LibraryLintReindented, false},
};

void Measure(benchmark::State& state, const Operation& operation) {
    const Fixture& f = FixtureFor(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        Kept kept = operation.run(f);
        if (operation.releaseUntimed) {
            state.PauseTiming();
            kept.reset();
            state.ResumeTiming();
        }
    }
    state.SetBytesProcessed(state.iterations() * f.bytes.size());
    state.counters["document_bytes"] = static_cast<double>(f.bytes.size());
    state.counters["items"] = f.items;
}

void RegisterBenchmarks() {
    for (const Operation& operation : kOperations) {
        const std::string name = std::string(operation.name) + "/" + operation.contender;
        auto* benchmark = benchmark::RegisterBenchmark(
            name.c_str(), [&operation](benchmark::State& state) { Measure(state, operation); });
        for (const int items : kSizes)
            benchmark->Arg(items);
        benchmark->Unit(benchmark::kMillisecond);
    }
}

// ---- memory and profiling modes -------------------------------------------

// Bytes that malloc has handed out and not yet taken back.
qint64 HeapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<qint64>(info.uordblks) + static_cast<qint64>(info.hblkhd);
}

int WriteDocument(int items, const QString& path) {
    bench::MakeSettings(items).SaveXml(path);
    return 0;
}

// Loads the file the way a host does and reports what the tree keeps on the
// heap; run under /usr/bin/time -v for the peak.
int LoadForMemory(const QString& path, bool wholeText) {
    const qint64 before = HeapInUse();
    Exciter_Settings settings;
    if (wholeText)
        settings.SetXmlString(QString::fromUtf8(ReadFile(path)));
    else
        settings.LoadXml(path);
    std::printf("tree_bytes: %lld\n", static_cast<long long>(HeapInUse() - before));
    return 0;
}

// The one call that callgrind is told to count (--toggle-collect).
__attribute__((noinline)) Kept ProfiledOperation(const Operation& operation, const Fixture& f) {
    return operation.run(f);
}

int Profile(const char* name, const char* contender, int items) {
    for (const Operation& operation : kOperations) {
        if (std::strcmp(operation.name, name) != 0 ||
            std::strcmp(operation.contender, contender) != 0)
            continue;
        const Fixture& f = FixtureFor(items);
        operation.run(f); // once before, so that first-use costs are not counted
        ProfiledOperation(operation, f);
        return 0;
    }
    Fail(QStringLiteral("no operation %1/%2").arg(QLatin1String(name), QLatin1String(contender)));
}

void Usage() {
    std::fprintf(
        stderr,
        "usage: exciter_settings_bench [Google Benchmark options]\n"
        "       exciter_settings_bench --write-document ITEMS FILE\n"
        "       exciter_settings_bench --load-file FILE     (LoadXml; prints tree_bytes)\n"
        "       exciter_settings_bench --load-text FILE     (whole text, then SetXmlString)\n"
        "       exciter_settings_bench --idle               (start-up only, for a baseline)\n"
        "       exciter_settings_bench --profile OPERATION CONTENDER ITEMS\n"
        "                 (one run inside ProfiledOperation, for callgrind --toggle-collect)\n");
}

int RunMode(int argc, char** argv) {
    const std::string mode = argv[1];
    try {
        if (mode == "--write-document" && argc == 4)
            return WriteDocument(std::atoi(argv[2]), QString::fromLocal8Bit(argv[3]));
        if ((mode == "--load-file" || mode == "--load-text") && argc == 3)
            return LoadForMemory(QString::fromLocal8Bit(argv[2]), mode == "--load-text");
        if (mode == "--idle" && argc == 2)
            return 0;
        if (mode == "--help-modes") {
            Usage();
            return 0;
        }
        if (mode == "--profile" && argc == 5)
            return Profile(argv[2], argv[3], std::atoi(argv[4]));
    } catch (const KelmoraException& failure) {
        Fail(failure.GetMessage());
    }
    Usage();
    return 64;
}

bool IsOwnMode(const char* argument) {
    for (const char* mode : {"--write-document", "--load-file", "--load-text", "--idle",
                             "--profile", "--help-modes"}) {
        if (std::strcmp(argument, mode) == 0)
            return true;
    }
    return false;
}

} // namespace

int main(int argc, char** argv) {
    if (argc > 1 && IsOwnMode(argv[1]))
        return RunMode(argc, argv);
    RegisterBenchmarks();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
