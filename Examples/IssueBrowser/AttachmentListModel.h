#pragma once

#include <QAbstractListModel>
#include <QUrl>
#include <QVector>

namespace BCFLib {
class Topic;
}

/// What a topic points to, one in a row: its link, model files, documents, snippet and related topics.
class AttachmentListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// Shows another topic, which has to outlive its being shown; null for none.
    void setTopic(const BCFLib::Topic *topic);
    /// The topic of the archive that a row leads to; null for rows of other kinds.
    BCFLib::Topic *relatedTopic(const QModelIndex &index) const;
    /// The web address that a row holds; empty if it holds none.
    QUrl address(const QModelIndex &index) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    /// Qt::DisplayRole has the name and below it the particulars, Qt::EditRole the name alone.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    const BCFLib::Topic *_topic = nullptr;
    /// The objects that are shown; for the link the topic itself.
    QVector<const QObject *> _rows;
};
