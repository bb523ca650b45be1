#include "app/window/OutsidePathsQuestion.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace veldraw::app {

namespace {

constexpr std::size_t mostShown = 10;

// Ends of lines and turns of the writing direction could make a name look like another one.
QString legible(QString name)
{
    std::replace_if(
        name.begin(), name.end(), [](QChar c) { return !c.isPrint() && !c.isSurrogate(); },
        QChar(QChar::ReplacementCharacter));
    return name;
}

QString linesOf(std::vector<std::string> const& paths)
{
    QString lines;
    for (std::size_t n = 0; n < std::min(paths.size(), mostShown); ++n)
        lines += legible(QString::fromStdString(paths[n])) + QLatin1Char('\n');
    return paths.size() > mostShown ? lines + QStringLiteral("and %1 more\n").arg(paths.size() - mostShown) : lines;
}

} // namespace

bool mayFollow(QWidget& window, QString const& path, std::vector<std::string> const& outside)
{
    QString const text = QStringLiteral("%1 names files outside of its folder:\n\n").arg(QFileInfo(path).fileName()) +
                         linesOf(outside) +
                         QStringLiteral("\nRead them too? Do so if you know where the file comes from.");
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Files Elsewhere"), text,
                    QMessageBox::Open | QMessageBox::Cancel, &window);
    box.setObjectName(QStringLiteral("outsidePathsQuestion"));
    box.setTextFormat(Qt::PlainText); // names are no markup; an informative text could not be told that
    box.button(QMessageBox::Open)->setText(QStringLiteral("&Read Them"));
    box.setDefaultButton(QMessageBox::Cancel);
    return box.exec() == QMessageBox::Open;
}

} // namespace veldraw::app
