#pragma once

#include <QtGlobal>

/// Marks what a host may use; everything else stays inside the library.
#ifdef UTILITY_LIBRARY
#    define UTILITY_EXPORT Q_DECL_EXPORT
#else
#    define UTILITY_EXPORT Q_DECL_IMPORT
#endif
