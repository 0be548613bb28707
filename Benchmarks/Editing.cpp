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
#include <vector>

namespace Benchmarks {

namespace {

using BCFLib::BCFModel;
using BCFLib::Topic;

/// So many siblings of a kind stand in memory together, in one family or in many smaller ones: what a search
/// waits for when it meets an object that is not in the processor's caches doesn't depend on the siblings.
constexpr int allTogether = 10000;

/// Adds one by a guid that nobody bears, finds any, looks for one that nobody bears and removes any in turn,
/// in any of the families, so that what one operation puts off the next one pays. Filling the added one
/// counts for none of them.
///
/// The first search in a family looks at each child once; it is a figure of its own.
template<class Owner, class Object, class Add>
void edit(benchmark::State &state, const QList<Owner *> &owners, QList<Object *> (Owner::*all)() const,
          const Add &add, Object *(Owner::*find)(const QString &) const,
          void (Owner::*remove)(const QString &))
{
    std::vector<QStringList> guidsOf;
    QVariantMap form;
    double first = 0;
    for (Owner *owner : owners) {
        QStringList guids;
        for (const Object *object : (owner->*all)()) {
            guids.append(object->guid());
            form = object->toQVariant().toMap();
        }
        first += seconds([&] { (owner->*find)(guids.first()); });
        guidsOf.push_back(guids);
    }
    QRandomGenerator random(7);
    double adding = 0;
    double finding = 0;
    double missing = 0;
    double removing = 0;
    for (auto _ : state) {
        const int family = random.bounded(owners.size());
        Owner *owner = owners.at(family);
        QStringList &guids = guidsOf[static_cast<std::size_t>(family)];
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
    state.counters["first"] = first / owners.size();
    state.counters["add"] = adding / double(state.iterations());
    state.counters["find"] = finding / double(state.iterations());
    state.counters["miss"] = missing / double(state.iterations());
    state.counters["remove"] = removing / double(state.iterations());
}

void editTopics(benchmark::State &state, int size, const QString &folder)
{
    std::vector<QSharedPointer<BCFModel>> models;
    QList<BCFModel *> owners;
    for (int count = 0; count < allTogether; count += size) {
        models.push_back(makeModel({size, 1, 20, 0, 5, 0, false}, folder));
        owners.append(models.back().data());
    }
    const auto add = [](BCFModel *to, const QString &guid) {
        return to->addTopic("New", "a@example.com", QDateTime(), guid);
    };
    edit(state, owners, &BCFModel::topics, add, &BCFModel::topic, &BCFModel::removeTopic);
}

void editComments(benchmark::State &state, int size, const QString &folder)
{
    const auto model = makeModel({allTogether / size, 1, 20, 0, size, 0, false}, folder);
    const auto add = [](Topic *topic, const QString &guid) { return topic->addComment(guid); };
    edit(state, model->topics(), &Topic::comments, add, &Topic::comment, &Topic::removeComment);
}

void editViewpoints(benchmark::State &state, int size, const QString &folder)
{
    const auto model = makeModel({allTogether / size, size, 20, 0, 5, 0, false}, folder);
    const auto add = [](Topic *topic, const QString &guid) { return topic->addViewpoint(guid); };
    edit(state, model->topics(), &Topic::viewpoints, add, &Topic::viewpoint, &Topic::removeViewpoint);
}

} // namespace

void registerEditing(const QString &folder, bool quick)
{
    for (const int size : {100, 1000, 10000}) {
        if (quick && size > 100) {
            continue;
        }
        const auto add = [=](const char *family, const auto &measure) {
            const QString name = QStringLiteral("%1/%2").arg(family).arg(size);
            benchmark::RegisterBenchmark(qPrintable(name), [=](benchmark::State &state) {
                measure(state, size, folder);
            })->Iterations(3000);
        };
        add("topics of a model", editTopics);
        add("comments of a topic", editComments);
        add("viewpoints of a topic", editViewpoints);
    }
}

} // namespace Benchmarks
