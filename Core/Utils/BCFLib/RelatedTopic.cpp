#include "RelatedTopic.h"

#include "Tree/Owners.h"

#include <utility>

namespace BCFLib {

RelatedTopic::RelatedTopic(QString guid, QObject *parent)
    : QObject(parent)
    , _guid(std::move(guid))
{
}

RelatedTopic::~RelatedTopic() = default;

void RelatedTopic::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

QString RelatedTopic::guid() const
{
    return _guid;
}

void RelatedTopic::setGuid(const QString &guid)
{
    _guid = guid;
}

QVariant RelatedTopic::toQVariant() const
{
    return _guid;
}

} // namespace BCFLib
