#ifndef BCFLIB_TREE_GUID_H
#define BCFLIB_TREE_GUID_H

#include <Core/Utils/Utility/NewId.h>
#include <QString>

namespace BCFLib {

/// The guid itself, or a fresh one where it is empty.
inline QString guidOrNewId(const QString &guid)
{
    return guid.isEmpty() ? Tavrin::NewId() : guid;
}

} // namespace BCFLib

#endif // BCFLIB_TREE_GUID_H
