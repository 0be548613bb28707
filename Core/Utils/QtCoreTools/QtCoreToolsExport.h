#pragma once

#include <QtGlobal>

/// Marks what a host may use; everything else stays inside the library.
#ifdef QTCORETOOLS_LIBRARY
#    define QTCORETOOLS_EXPORT Q_DECL_EXPORT
#else
#    define QTCORETOOLS_EXPORT Q_DECL_IMPORT
#endif
