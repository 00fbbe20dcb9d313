#pragma once

#include <QString>

#include <ostream>

QT_BEGIN_NAMESPACE

/// How a failed test shows a text of the toolkit.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

QT_END_NAMESPACE
