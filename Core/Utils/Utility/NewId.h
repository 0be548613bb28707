#pragma once

#include "UtilityExport.h"

#include <QString>

namespace Tavrin {

/// A fresh random identifier, different on each call and from any thread.
///
/// The text is a UUID in lower case without braces, so that it can stand as it is in an XML
/// attribute and as the name of a folder.
UTILITY_EXPORT QString NewId();

}
