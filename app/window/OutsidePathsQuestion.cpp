#include "app/window/OutsidePathsQuestion.h"

#include "app/window/LegibleNames.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace veldraw::app {

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
