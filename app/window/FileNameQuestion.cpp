#include "app/window/FileNameQuestion.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace veldraw::app {

namespace {

// The extension of a filter such as "VTK multi-block (*.vtm)".
QString extensionOf(QString const& filter)
{
    int const star = filter.indexOf(QLatin1String("*."));
    QString extension = star < 0 ? QString() : filter.mid(star + 1);
    for (int i = 1; i < extension.size(); ++i)
        if (!extension.at(i).isLetterOrNumber())
            return extension.left(i);
    return extension;
}

// Gives the name in a file dialog the extension of a filter, unless it has one that belongs to none of them.
void useFilter(QFileDialog& dialog, QString const& filter)
{
    QStringList extensions;
    for (QString const& other : dialog.nameFilters())
        extensions << extensionOf(other).mid(1);
    dialog.setDefaultSuffix(extensionOf(filter));
    QFileInfo const named(dialog.selectedFiles().value(0));
    if (extensions.contains(named.suffix()) && !named.isDir())
        dialog.selectFile(named.path() + QLatin1Char('/') + named.completeBaseName() + extensionOf(filter));
}

// Writes unless the user wants to keep a file that is there.
bool writeAsking(QWidget& window, FileNameQuestion const& question, QString const& path)
{
    bool const mayWrite =
        !question.replaces(path) ||
        mayReplace(window, QStringLiteral("There is already a file \"%1\".").arg(QFileInfo(path).fileName()));
    return mayWrite && question.write(path);
}

} // namespace

// The suggested name has an extension, since the dialog would enter a folder of the same name without one. The dialog itself would ask
// about a file that stays, where something else is made than a file of that name.
void askForName(QWidget& window, FileNameQuestion const& question)
{
    QString const extension = extensionOf(question.filters.value(0));
    QFileDialog dialog(&window, question.title, question.baseName + extension);
    dialog.setObjectName(QStringLiteral("saveDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setNameFilters(question.filters);
    dialog.setDefaultSuffix(extension);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&](QString const& filter) { useFilter(dialog, filter); });
    while (dialog.exec() == QDialog::Accepted && !writeAsking(window, question, dialog.selectedFiles().value(0))) {
    }
}

bool mayReplace(QWidget& window, QString const& what)
{
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Replace Files"), what, QMessageBox::Cancel, &window);
    box.setObjectName(QStringLiteral("replaceQuestion"));
    box.setInformativeText(QStringLiteral("Replace what is there?"));
    QPushButton const* const replace = box.addButton(QStringLiteral("&Replace"), QMessageBox::AcceptRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == replace;
}

} // namespace veldraw::app
