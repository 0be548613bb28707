#pragma once

#include "BCFLibExport.h"

#include <QObject>
#include <QString>
#include <QVariant>

namespace BCFLib {

/// A link from a topic to another one, by guid. Nothing checks that the other topic exists.
///
/// Made by Topic::addRelatedTopic() or by a load; owned by the topic that the link starts from.
class BCFLIB_EXPORT RelatedTopic : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString _guid READ guid WRITE setGuid)

public:
    /// Guid of the topic that the link leads to. It is a field; the object name stays empty.
    QString guid() const { return _guid; }
    void setGuid(const QString &guid) { _guid = guid; }

    /// The bare guid text, not a map.
    QVariant toQVariant() const { return _guid; }

protected:
    /// For Topic::addRelatedTopic() and the reader.
    RelatedTopic(QString guid, QObject *parent);

private:
    friend class Topic;

    void childEvent(QChildEvent *event) override;

    QString _guid;
};

} // namespace BCFLib
