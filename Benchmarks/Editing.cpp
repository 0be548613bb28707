#include "Archives.h"
#include "Measurements.h"
#include "Stopwatch.h"

#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/BCFLib/Comment.h>
#include <Core/Utils/BCFLib/Topic.h>
#include <Core/Utils/BCFLib/Viewpoint.h>
#include <Core/Utils/Utility/NewId.h>
#include <QRandomGenerator>
#include <benchmark/benchmark.h>

namespace Benchmarks {

namespace {

using BCFLib::BCFModel;
using BCFLib::Topic;

/// Adds one by a guid that nobody bears, finds any, looks for one that nobody bears and removes any in turn,
/// so that what one operation puts off the next one pays. Filling the added one counts for none of them.
///
/// The first search in a family looks at each child once; it is a figure of its own.
template<class Owner, class Object, class Add>
void edit(benchmark::State &state, Owner *owner, QList<Object *> (Owner::*all)() const, const Add &add,
          Object *(Owner::*find)(const QString &) const, void (Owner::*remove)(const QString &))
{
    QStringList guids;
    QVariantMap form;
    for (const Object *object : (owner->*all)()) {
        guids.append(object->guid());
        form = object->toQVariant().toMap();
    }
    QRandomGenerator random(7);
    state.counters["first"] = seconds([&] { (owner->*find)(guids.first()); });
    double adding = 0;
    double finding = 0;
    double missing = 0;
    double removing = 0;
    for (auto _ : state) {
        Object *added = nullptr;
        guids.append(Tavrin::NewId());
        adding += seconds([&] { added = add(owner, guids.last()); });
        // It gets what the others have, so that in small trees too each removal takes as much away.
        form[QStringLiteral("guid")] = guids.last();
        added->fromQVariant(form);
        std::swap(guids[random.bounded(guids.size())], guids.last());
        const QString any = guids.last();
        const Object *found = nullptr;
        finding += seconds([&] { found = (owner->*find)(any); });
        const QString nobodys = Tavrin::NewId();
        const Object *foundToo = nullptr;
        missing += seconds([&] { foundToo = (owner->*find)(nobodys); });
        if (found == nullptr || foundToo != nullptr) {
            state.SkipWithError("an object was not found, or one that is none");
        }
        removing += seconds([&] { (owner->*remove)(guids.takeLast()); });
    }
    state.counters["add"] = adding / double(state.iterations());
    state.counters["find"] = finding / double(state.iterations());
    state.counters["miss"] = missing / double(state.iterations());
    state.counters["remove"] = removing / double(state.iterations());
}

void editTopics(benchmark::State &state, BCFModel *model)
{
    const auto add = [](BCFModel *to, const QString &guid) {
        return to->addTopic("New", "a@example.com", QDateTime(), guid);
    };
    edit(state, model, &BCFModel::topics, add, &BCFModel::topic, &BCFModel::removeTopic);
}

void editComments(benchmark::State &state, BCFModel *model)
{
    const auto add = [](Topic *topic, const QString &guid) { return topic->addComment(guid); };
    edit(state, model->topics().last(), &Topic::comments, add, &Topic::comment, &Topic::removeComment);
}

void editViewpoints(benchmark::State &state, BCFModel *model)
{
    const auto add = [](Topic *topic, const QString &guid) { return topic->addViewpoint(guid); };
    edit(state, model->topics().last(), &Topic::viewpoints, add, &Topic::viewpoint, &Topic::removeViewpoint);
}

} // namespace

void registerEditing(const QString &folder, bool quick)
{
    for (const int size : {100, 1000, 10000}) {
        if (quick && size > 1000) {
            continue;
        }
        const auto add = [=](const char *tree, const char *kind, const Contents &contents,
                             const auto &measure) {
            const QString name = QStringLiteral("%1/%2/%3").arg(tree).arg(size).arg(kind);
            benchmark::RegisterBenchmark(qPrintable(name), [=](benchmark::State &state) {
                measure(state, makeModel(contents, folder).data());
            })->Iterations(3000);
        };
        const Contents topics = {size, 1, 20, 0, 5, 0, false};
        add("topics of a model", "a comment", topics, editComments);
        add("topics of a model", "a viewpoint", topics, editViewpoints);
        add("topics of a model", "a topic", topics, editTopics);
        add("comments of a topic", "a comment", {1, 1, 20, 0, size, 0, false}, editComments);
        add("viewpoints of a topic", "a viewpoint", {1, size, 20, 0, 5, 0, false}, editViewpoints);
    }
}

} // namespace Benchmarks
