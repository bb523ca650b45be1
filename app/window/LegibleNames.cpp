#include "app/window/LegibleNames.h"

#include <algorithm>

namespace veldraw::app {

namespace {

constexpr std::size_t mostShown = 10;

} // namespace

QString legible(QString name)
{
    std::replace_if(
        name.begin(), name.end(), [](QChar c) { return !c.isPrint() && !c.isSurrogate(); },
        QChar(QChar::ReplacementCharacter));
    return name;
}

QString linesOf(std::vector<std::string> const& names)
{
    QString lines;
    for (std::size_t n = 0; n < std::min(names.size(), mostShown); ++n)
        lines += legible(QString::fromStdString(names[n])) + QLatin1Char('\n');
    return names.size() > mostShown ? lines + QStringLiteral("and %1 more\n").arg(names.size() - mostShown) : lines;
}

} // namespace veldraw::app
