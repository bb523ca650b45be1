#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>

#include <set>
#include <string>
#include <type_traits>

namespace veldraw::tests {

inline QString valueText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

inline QString valueText(char value)
{
    return QStringLiteral("'%1'").arg(QLatin1Char(value));
}

/// All digits that tell the number from its neighbours.
inline QString valueText(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

/// In quotes, an end of a line as "\n", so that blanks at the ends can be seen.
inline QString valueText(std::string const& value)
{
    QString text = QString::fromStdString(value);
    return QStringLiteral("\"%1\"").arg(text.replace(QLatin1Char('\n'), QStringLiteral("\\n")));
}

inline QString valueText(std::set<int> const& values)
{
    QStringList numbers;
    for (int const value : values)
        numbers += QString::number(value);
    return QStringLiteral("{%1}").arg(numbers.join(QStringLiteral(", ")));
}

/// Whole numbers; enumerations as their number.
template <typename T>
std::enable_if_t<std::is_enum_v<T> || std::is_integral_v<T>, QString> valueText(T value)
{
    return QString::number(static_cast<long long>(value));
}

} // namespace veldraw::tests
