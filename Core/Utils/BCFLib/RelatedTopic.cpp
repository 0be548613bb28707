#include "RelatedTopic.h"

#include "Tree/Owners.h"

#include <utility>

namespace BCFLib {

RelatedTopic::RelatedTopic(QString guid, QObject *parent)
    : QObject(parent)
    , _guid(std::move(guid))
{
}

void RelatedTopic::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

} // namespace BCFLib
