#pragma once

#include <QDomDocument>
#include <QString>
#include <string>
#include <string_view>

namespace BCFLib::Xml {

/// Elements of one name that stand in a document as one small node.
///
/// As a node of its own an element takes some thirty times the memory of its text, and a file can hold
/// hundreds of thousands that are read one after the other. They are kept in this form until their turn
/// comes, as a sequence of strings, each with a leading tag byte and a terminating NUL.
///
/// The node is a processing instruction whose target is the elements' name with a blank in front, which no
/// parsed name can have.
class ElementRun
{
public:
    /// The first numerous elements of a document stay ordinary nodes; few files have more.
    static constexpr int fewElements = 200;
    /// What a run may hold before the next one begins: little, so that what was read is soon given back.
    static constexpr std::size_t largeRun = std::size_t{16} * 1024;

    void beginElement(const char *name, const char **attributes);
    void addText(std::string_view text);
    /// For a comment and the like, whose content is never read.
    void addOtherNode();
    void endElement();

    bool isEmpty() const { return _marks.empty(); }
    std::size_t size() const { return _marks.size(); }
    std::string_view name() const;

    /// A node of the elements, all of which have ended. The run begins anew.
    QDomNode take(QDomDocument *document);

    /// Whether @p node holds elements of that name.
    static bool isRun(const QDomNode &node, const QString &name);
    /// The elements of a node, below an element that stands nowhere in the document.
    static QDomElement elements(const QDomNode &node);

private:
    void add(char mark, std::string_view text);

    std::string _marks;
};

} // namespace BCFLib::Xml
