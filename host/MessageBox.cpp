#include "host/MessageBox.h"

#include "host/ArrowCursor.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>

namespace veldraw::host {

namespace {

QMessageBox::Icon icon(MessageBoxType_e type)
{
    switch (type) {
    case MessageBoxType_Error:
        return QMessageBox::Critical;
    case MessageBoxType_Warning:
        return QMessageBox::Warning;
    case MessageBoxType_Information:
        return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

QWidget* windowBelow()
{
    if (QWidget* const modal = QApplication::activeModalWidget())
        return modal;
    return QApplication::activeWindow();
}

} // namespace

bool MessageBox::canBeShown()
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return false;
    QString const platform = QGuiApplication::platformName();
    return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

void MessageBox::show(std::string const& text, MessageBoxType_e type, std::string const& details)
{
    ArrowCursor const arrow;
    // The parent may go while the box is open and takes the box with it, so the box is not on the stack.
    QPointer<QMessageBox> box =
        new QMessageBox(icon(type), QGuiApplication::applicationDisplayName(), {}, QMessageBox::Ok, windowBelow());
    box->setObjectName(QStringLiteral("messageBox"));
    box->setTextFormat(Qt::PlainText);
    box->setText(QString::fromStdString(text));
    box->setDetailedText(QString::fromStdString(details));
    box->exec();
    delete box;
}

} // namespace veldraw::host
