#pragma once

#include <QtGlobal>

#include <string>
#include <string_view>

namespace BCFLib {

class ReadBudget;

namespace Xml {

/// Counts the nodes of an XML file while it is read or written, against the bounds of Limits and at the
/// cost of a budget.
class NodeCount
{
public:
    /// Whether elements of which a file may hold any number are kept in runs, but for the first few.
    enum class Runs { None, OfNumerousElements };

    /// @p budget may be null.
    NodeCount(Runs runs, ReadBudget *budget);

    /// @p name does not matter within an element that is kept in a run.
    void beginElement(std::string_view name, int attributes);
    void endElement();
    void addText();
    /// For a comment and the like.
    void addOtherNode();

    /// Whether the open element, or one around it, is kept in a run.
    bool isInRun() const { return _runDepth > 0; }
    /// Whether the file is too much for a load.
    bool isTooMuch() const;

private:
    bool isNumerous() const;
    void add(qint64 count, qint64 costOfEach);

    Runs _runs;
    ReadBudget *_budget;
    qint64 _nodes = 0;
    int _depth = 0;
    /// The depth of the element that begins in a run; 0 outside of runs.
    int _runDepth = 0;
    int _numerous = 0;
    /// The names of the open elements below the root, each with a slash in front, up to where a run begins.
    std::string _path;
    bool _isRefused = false;
};

} // namespace Xml
} // namespace BCFLib
