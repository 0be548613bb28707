#pragma once

#include "QtCoreToolsExport.h"

#include <QMetaType>
#include <QString>
#include <QVariant>
#include <type_traits>

namespace Tavrin {

/// A truth value that may also be unknown.
///
/// The numbers are fixed, because they are stored in plain fields. True is 0 and false is 1, so a
/// Boolean must never be tested as if it were a bool: compare it, or ask toBool().
enum Boolean {
    BooleanTrue = 0,
    BooleanFalse = 1,
    BooleanUnset = 2,
};

/// True for BooleanTrue only.
QTCORETOOLS_EXPORT bool toBool(Boolean value);

/// True for the texts "true" and "1", in any case and with blanks around them.
QTCORETOOLS_EXPORT bool toBool(const QString &text);

/// BooleanTrue or BooleanFalse, never unset.
QTCORETOOLS_EXPORT Boolean toBoolean(bool value);

/// "true" or "1", "false" or "0", in any case and with blanks around them; BooleanUnset for any
/// other text.
QTCORETOOLS_EXPORT Boolean toBoolean(const QString &text);

/// Refused, because a string literal, a number or a Boolean would silently turn into a bool, and
/// a Boolean even into its opposite.
template<typename Scalar, typename = std::enable_if_t<std::is_scalar_v<Scalar>>>
Boolean toBoolean(Scalar) = delete;

/// The truth value that a variant holds: a Boolean, a bool, a number (0 is false) or a text as
/// toBoolean() reads it. A null variant and one of any other type give BooleanUnset.
QTCORETOOLS_EXPORT Boolean fromVariant(const QVariant &variant);

}

Q_DECLARE_METATYPE(Tavrin::Boolean)
