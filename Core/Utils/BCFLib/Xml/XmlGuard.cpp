#include "XmlGuard.h"

#include "Io/Limits.h"

#include <cstring>

namespace BCFLib {

bool XmlGuard::accepts(const QString &text)
{
    _at = text.utf16();
    _end = _at + text.size();
    while (_isHarmless && _at != _end) {
        switch (_place) {
        case Place::Content:
            scanContent();
            break;
        case Place::Opening:
            scanOpening();
            break;
        case Place::Tag:
            scanTag();
            break;
        case Place::EndTag:
            scanEndTag();
            break;
        case Place::Quotation:
            scanQuotation();
            break;
        case Place::Skipped:
            scanSkipped();
            break;
        case Place::DocumentType:
            scanDocumentType();
            break;
        }
    }
    return _isHarmless;
}

/// Goes to the next unit that @p isWanted; false if there is none.
template<class Predicate>
bool XmlGuard::find(const Predicate &isWanted)
{
    const ushort *const end = _end;
    const ushort *at = _at;
    while (at != end && !isWanted(*at)) {
        ++at;
    }
    _at = at;
    return at != end;
}

void XmlGuard::scanContent()
{
    if (!find([](ushort unit) { return unit == '<' || unit == '&'; })) {
        return;
    }
    if (*_at++ == '<') {
        _place = Place::Opening;
    } else {
        // A reference to an entity that nothing declares is a node of its own, wherever it stands.
        count();
    }
}

void XmlGuard::scanOpening()
{
    if (!_opening.empty() || *_at == '!') {
        scanDeclaration();
    } else if (*_at == '?') {
        ++_at;
        count();
        skipPast("?>");
    } else if (_isInDocumentType) {
        count();
        _place = Place::DocumentType;
    } else if (*_at == '/') {
        close();
        _place = Place::EndTag;
    } else {
        _lastOfTag = 0;
        _attributes = 0;
        _place = Place::Tag;
    }
}

void XmlGuard::scanDeclaration()
{
    const ushort unit = *_at++;
    _opening += unit < 128 ? static_cast<char>(unit) : '\0';
    if (_opening == "!--") {
        count();
        skipPast("-->");
    } else if (_isInDocumentType && (mayBecome("!--") || mayBecome("!ENTITY") || mayBecome("!ATTLIST"))) {
        _isHarmless = _opening != "!ENTITY" && _opening != "!ATTLIST";
        return;
    } else if (_isInDocumentType) {
        count();
        --_at;
        _place = Place::DocumentType;
    } else if (_opening == "![CDATA[") {
        count();
        skipPast("]]>");
    } else if (_opening == "!DOCTYPE") {
        _isInDocumentType = true;
        _place = Place::DocumentType;
    } else {
        _isHarmless = mayBecome("!--") || mayBecome("![CDATA[") || mayBecome("!DOCTYPE");
        return;
    }
    _opening.clear();
}

void XmlGuard::scanTag()
{
    const ushort *const begin = _at;
    const bool isFound = find([](ushort unit) { return unit == '>' || unit == '"' || unit == '\''; });
    if (_at != begin) {
        _lastOfTag = _at[-1];
    }
    if (!isFound) {
        return;
    }
    if (*_at == '>') {
        _lastOfTag == '/' ? count() : open();
        _place = Place::Content;
    } else {
        _lastOfTag = *_at;
        ++_attributes;
        count();
        _isHarmless = _isHarmless && _attributes <= Limits::xmlAttributes;
        beginQuotation();
    }
    ++_at;
}

void XmlGuard::scanEndTag()
{
    if (find([](ushort unit) { return unit == '>'; })) {
        ++_at;
        _place = Place::Content;
    }
}

void XmlGuard::scanQuotation()
{
    if (!find([mark = _quotationMark](ushort unit) { return unit == mark || unit == '&'; })) {
        return;
    }
    if (*_at++ == '&') {
        count();
    } else {
        _place = _isInDocumentType ? Place::DocumentType : Place::Tag;
    }
}

void XmlGuard::scanSkipped()
{
    while (_at != _end) {
        _recent = _recent << 16 | *_at++;
        if ((_recent & _closingMask) == _closing) {
            _place = _isInDocumentType ? Place::DocumentType : Place::Content;
            return;
        }
    }
}

void XmlGuard::scanDocumentType()
{
    switch (*_at) {
    case '<':
        _place = Place::Opening;
        break;
    case '"':
    case '\'':
        beginQuotation();
        break;
    case '(':
        // The parser calls itself for each group in the content of an element.
        open();
        break;
    case ')':
        close();
        break;
    case '[':
        _isInSubset = true;
        break;
    case ']':
        _isInSubset = false;
        break;
    case '>':
        _isInDocumentType = _isInSubset;
        _place = _isInSubset ? Place::DocumentType : Place::Content;
        break;
    default:
        break;
    }
    ++_at;
}

/// Begins a quoted text with the mark that it also ends with.
void XmlGuard::beginQuotation()
{
    _quotationMark = *_at;
    _place = Place::Quotation;
}

void XmlGuard::skipPast(const char *closing)
{
    _closing = 0;
    _closingMask = 0;
    for (; *closing != '\0'; ++closing) {
        _closing = _closing << 16 | static_cast<uchar>(*closing);
        _closingMask = _closingMask << 16 | 0xFFFF;
    }
    _recent = 0;
    _place = Place::Skipped;
}

bool XmlGuard::mayBecome(const char *markup) const
{
    return std::strncmp(markup, _opening.data(), _opening.size()) == 0;
}

void XmlGuard::open()
{
    count();
    _isHarmless = _isHarmless && ++_depth <= Limits::xmlDepth;
}

void XmlGuard::close()
{
    --_depth;
}

void XmlGuard::count()
{
    _isHarmless = _isHarmless && ++_nodes <= Limits::xmlNodes;
}

} // namespace BCFLib
