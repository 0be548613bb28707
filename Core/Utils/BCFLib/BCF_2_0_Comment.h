#pragma once

#include "Comment.h"

namespace BCF_2_0_Lib {

/// A comment in the form of versions 2.0 and 1.0, which has two status texts of its own.
class BCFLIB_EXPORT Comment : public BCFLib::Comment
{
    Q_OBJECT
    Q_PROPERTY(QString _verbalStatus READ verbalStatus WRITE setVerbalStatus)
    Q_PROPERTY(QString _status READ status WRITE setStatus)

public:
    /// A comment with that guid, taken as it comes, and without a date.
    Comment(const QString &guid, QObject *parent);
    /// The map of the base class, with "status" and, if it is not empty, "verbal_status".
    QVariant toQVariant() const override;
    void fromQVariant(const QVariant &variant) override;

    /// Free text that people use for the state of the issue.
    QString verbalStatus() const { return _verbalStatus; }
    void setVerbalStatus(const QString &verbalStatus) { _verbalStatus = verbalStatus; }

    /// Free text; tools write values such as "Error", "Warning", "Info", "Unknown".
    QString status() const { return _status; }
    void setStatus(const QString &status) { _status = status; }

protected:
    /// Reads what the base class reads, and the two status texts.
    void read(const QDomElement &element, QHash<BCFLib::Comment *, QString> &replies) override;
    void write(QDomDocument &doc, QDomElement &parent) const override;

private:
    QString _verbalStatus;
    QString _status;
};

} // namespace BCF_2_0_Lib
