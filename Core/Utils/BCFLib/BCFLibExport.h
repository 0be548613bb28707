#pragma once

#include <QtGlobal>

/// Marks what a host may use; everything else stays inside the library.
#ifdef BCFLIB_LIBRARY
#    define BCFLIB_EXPORT Q_DECL_EXPORT
#else
#    define BCFLIB_EXPORT Q_DECL_IMPORT
#endif
