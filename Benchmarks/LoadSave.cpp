#include "Archives.h"
#include "Floors.h"
#include "Measurements.h"
#include "Memory.h"
#include "Stopwatch.h"

#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/BCFLib/Topic.h>
#include <Core/Utils/BCFLib/Version.h>
#include <Core/Utils/QtCoreTools/ProgressionSignals.h>
#include <QDir>
#include <benchmark/benchmark.h>
#include <functional>
#include <future>
#include <limits>
#include <memory>

namespace Benchmarks {

namespace {

using ModelPointer = QSharedPointer<BCFLib::BCFModel>;

ModelPointer load(const QString &path)
{
    return BCFLib::BCFModel::Deserialize(path, Tavrin::ProgressionSignals());
}

QVariantList topicForms(const ModelPointer &model)
{
    QVariantList forms;
    for (const BCFLib::Topic *topic : model->topics()) {
        forms.append(topic->toQVariant());
    }
    return forms;
}

/// What one figure times, with what comes around it.
struct Timing
{
    std::function<bool()> work; ///< whether it succeeded
    std::function<void()> tidyUp = [] {};
    std::function<double()> floor = nullptr; ///< gives seconds
    clockid_t clock = CLOCK_THREAD_CPUTIME_ID;
};

/// Times work and floor in turn, so that both meet the same moods of the machine, and keeps the
/// shortest of each, as whatever else the machine does can only lengthen a run.
void measure(benchmark::State &state, int items, const Timing &timing)
{
    double shortestFloor = std::numeric_limits<double>::infinity();
    double shortest = shortestFloor;
    for (auto _ : state) {
        if (timing.floor) {
            shortestFloor = std::min(shortestFloor, timing.floor());
            state.counters["floor"] = shortestFloor;
        }
        bool succeeded = false;
        const double time = seconds([&] { succeeded = timing.work(); }, timing.clock);
        if (!succeeded) {
            state.SkipWithError("the library refused");
        }
        shortest = std::min(shortest, time);
        state.SetIterationTime(time);
        timing.tidyUp();
    }
    state.counters["time"] = shortest;
    state.counters["items"] = items;
}

/// An archive on disk, and the model that a load makes of it.
class Sample
{
public:
    Sample(const Archive &archive, const QString &folder)
        : _name(archive.name())
        , _size(archive.size)
        , _path(QDir(folder).absoluteFilePath("sample.bcf"))
        , _target(QDir(folder).absoluteFilePath("saved.bcf"))
    {
        makeModel(archive.contents, folder)->serialize(_path);
        _model = Benchmarks::load(_path);
    }

    QString name() const { return _name; }

    void load(benchmark::State &state)
    {
        ModelPointer loaded;
        const auto work = [&] {
            loaded = Benchmarks::load(_path);
            return !loaded->topics().isEmpty();
        };
        const auto floor = [this] { return seconds([this] { loadFloor(_path); }); };
        measure(state, _size, {work, [&] { loaded.reset(); }, floor});
        const Memory memory = memoryOfLoad(_path);
        state.counters["peak"] = memory.peak;
        state.counters["kept"] = memory.kept;
        state.counters["tree"] = memory.tree;
    }

    /// Two loads in threads of their own, beside one load alone.
    void loadTwiceAtOnce(benchmark::State &state)
    {
        const auto work = [this] {
            std::future<ModelPointer> other = std::async(std::launch::async, Benchmarks::load, _path);
            return !Benchmarks::load(_path)->topics().isEmpty() && !other.get()->topics().isEmpty();
        };
        const auto floor = [this] { return seconds([this] { Benchmarks::load(_path); }, CLOCK_MONOTONIC); };
        measure(state, 2 * _size, {work, [] {}, floor, CLOCK_MONOTONIC});
    }

    void save(benchmark::State &state)
    {
        const auto floor = [this] { return saveFloor(_path, _target); };
        measure(state, _size, {[this] { return _model->serialize(_target); }, [] {}, floor});
    }

    void validate(benchmark::State &state)
    {
        measure(state, _size, {[this] { return _model->isValid(); }});
    }

    void toVariant(benchmark::State &state)
    {
        QVariantList forms;
        const auto work = [&] {
            forms = topicForms(_model);
            return !forms.isEmpty();
        };
        measure(state, _size, {work, [&] { forms.clear(); }});
    }

    void fromVariant(benchmark::State &state)
    {
        const QVariantList forms = topicForms(_model);
        ModelPointer rebuilt;
        const auto work = [&] {
            rebuilt = BCFLib::BCFModel::Create(_model->version()->versionId(), nullptr);
            for (const QVariant &form : forms) {
                new BCFLib::Topic(form, rebuilt.data());
            }
            return rebuilt->topics().size() == forms.size();
        };
        measure(state, _size, {work, [&] { rebuilt.reset(); }});
    }

    void destroy(benchmark::State &state)
    {
        ModelPointer doomed = Benchmarks::load(_path);
        const auto work = [&] {
            doomed.reset();
            return true;
        };
        measure(state, _size, {work, [&] { doomed = Benchmarks::load(_path); }});
    }

private:
    QString _name;
    int _size;
    QString _path;
    QString _target;
    ModelPointer _model;
};

/// One archive is kept at a time; the measurements of one follow each other.
Sample &sampleOf(const Archive &archive, const QString &folder)
{
    static std::unique_ptr<Sample> sample;
    if (sample == nullptr || sample->name() != archive.name()) {
        sample.reset();
        sample = std::make_unique<Sample>(archive, folder);
    }
    return *sample;
}

} // namespace

void registerLoadSave(const QString &folder, bool quick)
{
    for (const Archive &archive : archives()) {
        if (quick && archive.isLarge) {
            continue;
        }
        const auto add = [&](const char *figure, void (Sample::*measure)(benchmark::State &)) {
            benchmark::RegisterBenchmark(
                qPrintable(archive.name() + '/' + figure),
                [=](benchmark::State &state) { (sampleOf(archive, folder).*measure)(state); })
                ->UseManualTime()
                ->Iterations(archive.isLarge ? 2 : 3)
                ->Unit(benchmark::kMillisecond);
        };
        add("load", &Sample::load);
        if (archive.name() == "topics/1000") {
            add("two at once", &Sample::loadTwiceAtOnce);
        }
        add("save", &Sample::save);
        add("validate", &Sample::validate);
        add("to variant", &Sample::toVariant);
        add("from variant", &Sample::fromVariant);
        add("destroy", &Sample::destroy);
    }
}

} // namespace Benchmarks
