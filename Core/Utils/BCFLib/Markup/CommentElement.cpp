#include "BCF_2_0_Comment.h"
#include "Comment.h"
#include "DOMXml.h"
#include "Xml/Elements.h"

#include <QDomDocument>

namespace BCFLib {

void Comment::read(const QDomElement &element, QHash<Comment *, QString> &replies)
{
    _date = Xml::childDate(element, QStringLiteral("Date"));
    _isDateOfFile = true;
    _author = Xml::childText(element, QStringLiteral("Author"));
    _comment = Xml::childText(element, QStringLiteral("Comment"));
    const QString answeredGuid = Xml::childGuid(element, QStringLiteral("ReplyToComment"));
    if (!answeredGuid.isEmpty()) {
        replies.insert(this, answeredGuid);
    }
    _modifiedDate = Xml::childDate(element, QStringLiteral("ModifiedDate"));
    _isModifiedDateOfFile = true;
    _modifiedAuthor = Xml::childText(element, QStringLiteral("ModifiedAuthor"));
}

void Comment::write(QDomDocument &doc, QDomElement &parent) const
{
    const auto appendLink = [&doc](QDomElement &element, const QString &name, const QString &guid) {
        element.appendChild(Tavrin::DOMXml::createAttributeElement(doc, name, QStringLiteral("Guid"), guid));
    };
    QDomElement element = Xml::appendElement(doc, parent, QStringLiteral("Comment"));
    Xml::setAttribute(element, QStringLiteral("Guid"), guid());
    Xml::appendText(doc, element, QStringLiteral("Date"), Xml::dateText(_date));
    Xml::appendText(doc, element, QStringLiteral("Author"), _author);
    Xml::appendText(doc, element, QStringLiteral("Comment"), _comment);
    // An empty topic guid is taken by every topic, so a comment without a topic can be read again.
    appendLink(element, QStringLiteral("Topic"), _topic ? _topic->guid() : QString());
    if (_viewpoint) {
        appendLink(element, QStringLiteral("Viewpoint"), _viewpoint->guid());
    }
    if (_replyToComment) {
        appendLink(element, QStringLiteral("ReplyToComment"), _replyToComment->guid());
    }
    if (_modifiedDate.isValid()) {
        Xml::appendText(doc, element, QStringLiteral("ModifiedDate"), Xml::dateText(_modifiedDate));
    }
    Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("ModifiedAuthor"), _modifiedAuthor);
}

} // namespace BCFLib

namespace BCF_2_0_Lib {

void Comment::read(const QDomElement &element, QHash<BCFLib::Comment *, QString> &replies)
{
    BCFLib::Comment::read(element, replies);
    _status = BCFLib::Xml::childText(element, QStringLiteral("Status"));
    _verbalStatus = BCFLib::Xml::childText(element, QStringLiteral("VerbalStatus"));
}

void Comment::write(QDomDocument &doc, QDomElement &parent) const
{
    BCFLib::Comment::write(doc, parent);
    QDomElement element = parent.lastChildElement();
    BCFLib::Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("VerbalStatus"), _verbalStatus);
    BCFLib::Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("Status"), _status);
}

} // namespace BCF_2_0_Lib
