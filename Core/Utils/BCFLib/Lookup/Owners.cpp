#include "Tree/Owners.h"

#include "BCFModel.h"
#include "BCF_2_0_Comment.h"
#include "BCF_2_0_Component.h"
#include "BCF_2_0_Viewpoint.h"
#include "BimSnippet.h"
#include "Bitmap.h"
#include "ClippingPlane.h"
#include "Comment.h"
#include "Component.h"
#include "Components.h"
#include "DocumentReference.h"
#include "File.h"
#include "Line.h"
#include "Project.h"
#include "RelatedTopic.h"
#include "Topic.h"
#include "Tree/GuidIndex.h"
#include "Version.h"
#include "Viewpoint.h"

#include <QChildEvent>
#include <typeinfo>

namespace BCFLib {

namespace {

template<class... Classes>
bool isAnyOf(const std::type_info &type)
{
    return ((type == typeid(Classes)) || ...);
}

} // namespace

/// Calls @p work with each index that an object keeps.
template<class Work>
void Owners::withIndexesOf(const QObject *owner, const Work &work)
{
    const auto callFor = [&work](const std::unique_ptr<GuidIndex> &index) {
        if (index != nullptr) {
            work(index.get());
        }
    };
    if (const Topic *topic = qobject_cast<const Topic *>(owner)) {
        callFor(topic->_commentIndex);
        callFor(topic->_viewpointIndex);
    } else if (const BCFModel *model = qobject_cast<const BCFModel *>(owner)) {
        callFor(model->_topicIndex);
    }
}

void Owners::event(const QObject *parent, const QEvent *event)
{
    if (event->type() == QEvent::ChildAdded || event->type() == QEvent::ChildRemoved) {
        childEvent(parent, static_cast<const QChildEvent *>(event));
    }
}

void Owners::childEvent(const QObject *parent, const QChildEvent *event)
{
    // Added children are reported to all ancestors, removed ones to the parent only.
    const QObject *const top = event->added() ? nullptr : parent->parent();
    for (const QObject *object = parent; object != top; object = object->parent()) {
        withIndexesOf(object, [event](GuidIndex *index) { index->childEvent(event); });
    }
}

void Owners::hasBeenMade(QObject *child)
{
    for (const QObject *object = child->parent(); object != nullptr; object = object->parent()) {
        withIndexesOf(object, [child](GuidIndex *index) { index->hasBeenMade(child); });
    }
}

void Owners::aboutToRename(const QObject *child, const QString &guid)
{
    withIndexesOf(child->parent(), [&](GuidIndex *index) { index->aboutToRename(child, guid); });
}

void Owners::aboutToGo(const QObject *child)
{
    withIndexesOf(child->parent(), [child](GuidIndex *index) { index->forget(child); });
}

bool isOwnClass(const QObject *object)
{
    // Not by its meta-object, as a subclass needs none.
    return isAnyOf<Component, BCF_2_0_Lib::Component, Components, Line, ClippingPlane, Bitmap, Viewpoint,
                   BCF_2_0_Lib::Viewpoint, Comment, BCF_2_0_Lib::Comment, File, BimSnippet, DocumentReference,
                   RelatedTopic, Topic, Project, Version, BCFModel>(typeid(*object));
}

} // namespace BCFLib
