// Shows texts of Qt's in the messages of failed tests.
#pragma once

#include <QString>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
