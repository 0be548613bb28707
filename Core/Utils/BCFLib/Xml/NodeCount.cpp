#include "NodeCount.h"

#include "ElementRun.h"
#include "Io/Limits.h"
#include "Io/ReadBudget.h"

#include <algorithm>
#include <array>

namespace BCFLib {

namespace {

using namespace std::string_view_literals;

/// The elements of which a markup or a viewpoint file may hold any number, by their path below the root.
constexpr std::array numerousElements{
    "/Comment"sv,
    "/Header/File"sv,
    "/Topic/DocumentReference"sv,
    "/Topic/Labels"sv,
    "/Topic/RelatedTopics"sv,
    "/Viewpoints"sv,
    "/Bitmaps"sv,
    "/ClippingPlanes/ClippingPlane"sv,
    "/Components/Component"sv,
    "/Components/Coloring/Color/Component"sv,
    "/Components/Selection/Component"sv,
    "/Components/Visibility/Exceptions/Component"sv,
    "/Lines/Line"sv,
};

} // namespace

Xml::NodeCount::NodeCount(Runs runs, ReadBudget *budget)
    : _runs(runs)
    , _budget(budget)
{
}

void Xml::NodeCount::beginElement(std::string_view name, int attributes)
{
    ++_depth;
    _isRefused |= _depth > Limits::xmlDepth || attributes > Limits::xmlAttributes;
    add(1, isInRun() ? Limits::innerNodeCost : Limits::nodeCost);
    add(attributes, Limits::nodeCost);
    if (isInRun() || _depth == 1) {
        return;
    }
    _path += '/';
    _path += name;
    if (_runs == Runs::OfNumerousElements && isNumerous() && ++_numerous > ElementRun::fewElements) {
        _runDepth = _depth;
    }
}

void Xml::NodeCount::endElement()
{
    if (_depth <= _runDepth) {
        _runDepth = 0;
    }
    if (!isInRun()) {
        _path.resize(_depth > 1 ? _path.rfind('/') : 0);
    }
    --_depth;
}

void Xml::NodeCount::addText()
{
    if (!isInRun()) {
        addOtherNode();
    }
}

void Xml::NodeCount::addOtherNode()
{
    add(1, Limits::nodeCost);
}

bool Xml::NodeCount::isTooMuch() const
{
    return _isRefused || _nodes > Limits::xmlNodes || (_budget != nullptr && _budget->isSpent());
}

bool Xml::NodeCount::isNumerous() const
{
    return std::find(numerousElements.begin(), numerousElements.end(), _path) != numerousElements.end();
}

void Xml::NodeCount::add(qint64 count, qint64 costOfEach)
{
    _nodes += count;
    if (_budget != nullptr) {
        _budget->spend(count * costOfEach);
    }
}

} // namespace BCFLib
