#include "tests/tour/TourContext.h"

#include "app/window/VariableTableModel.h"
#include "kernel/session/Session.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <utility>

namespace veldraw::tests {

using namespace app;

TourContext::TourContext(MainWindow& mainWindow, QString const& pictureFolder, std::atomic<Deferral>& openingDeferral)
    : window(mainWindow)
    , user(pictureFolder)
    , deferral(openingDeferral)
{
}

bool TourContext::check(char const* step, QString const& expected, QString const& found)
{
    return report.check(QString::fromUtf8(step), expected, found);
}

bool TourContext::check(char const* step, int expected, int found)
{
    return check(step, QString::number(expected), QString::number(found));
}

bool TourContext::check(char const* step, bool asExpected)
{
    return report.check(QString::fromUtf8(step), asExpected);
}

void TourContext::openDialogByKeys(int mnemonic, std::function<bool()> const& isThere)
{
    activate(window);
    user.key(Qt::Key_D, Qt::AltModifier);
    user.waitFor([] { return QApplication::activePopupWidget() != nullptr; });
    user.key(mnemonic);
    user.waitFor(isThere);
    // An entry that is not there leaves the menu open, and everything that comes after would go to it.
    while (QApplication::activePopupWidget())
        user.key(Qt::Key_Escape);
}

bool TourContext::expectThat(char const* step, std::function<bool()> const& condition)
{
    user.waitFor(condition);
    return check(step, condition());
}

bool TourContext::noteMessages(char const* step, QString const& expected, std::function<void()> const& action,
                               std::function<bool()> const& isDone, QString const& picture)
{
    QStringList const messages = user.messagesDuring(action, isDone, picture);
    return check(step, expected, messages.join(QLatin1Char('|')));
}

bool TourContext::expectMessage(char const* step, QString const& text, QPushButton& button, QString const& picture)
{
    return noteMessages(
        step, text, [&] { user.click(button); }, [] { return false; }, picture);
}

bool TourContext::expectMessage(char const* step, QString const& text, int key, Qt::KeyboardModifiers modifiers)
{
    return noteMessages(
        step, text, [&] { user.key(key, modifiers); }, [] { return false; });
}

bool TourContext::expectSilence(char const* step, QPushButton& button, std::function<bool()> const& condition)
{
    return noteMessages(
        step, QString(), [&] { user.click(button); }, condition);
}

bool TourContext::expectSilence(char const* step, int key, Qt::KeyboardModifiers modifiers,
                                std::function<bool()> const& condition)
{
    return noteMessages(
        step, QString(), [&] { user.key(key, modifiers); }, condition);
}

QPushButton& TourContext::button(QDialog& dialog, char const* text)
{
    for (QPushButton* const button : dialog.findChildren<QPushButton*>())
        if (button->text() == QLatin1String(text))
            return *button;
    qFatal("the dialog has no button \"%s\"", text);
}

QListView& TourContext::list(QDialog& dialog, char const* objectName)
{
    auto* const view = dialog.findChild<QListView*>(QLatin1String(objectName));
    if (!view)
        qFatal("the dialog has no list \"%s\"", objectName);
    return *view;
}

int TourContext::selectedRowCount(QListView const& list)
{
    return list.selectionModel()->selectedRows().size();
}

void TourContext::enterNumber(QDialog& dialog, char const* objectName, QString const& number)
{
    auto* const box = dialog.findChild<QAbstractSpinBox*>(QLatin1String(objectName));
    if (!box)
        qFatal("the dialog has no box \"%s\"", objectName);
    activate(dialog); // a message that was read may have left another window active
    user.click(*box, QPoint(10, box->height() / 2));
    user.key(Qt::Key_A, Qt::ControlModifier);
    user.type(number);
    user.key(Qt::Key_Tab);
    user.settle();
}

bool TourContext::assignVariable(char assignment, int variable)
{
    auto* const box = window.findChild<QComboBox*>(QStringLiteral("assignment") + QLatin1Char(assignment));
    if (!box)
        return false;
    activate(window);
    user.waitFor([&] { return box->findData(variable) >= 0; });
    user.key(Qt::Key_4, Qt::ControlModifier);
    for (int tabs = 0; tabs < 12 && !box->hasFocus(); ++tabs)
        user.key(Qt::Key_Tab);
    if (!box->hasFocus())
        return false;
    user.key(Qt::Key_Home);
    for (int row = 0; row < box->findData(variable); ++row)
        user.key(Qt::Key_Down);
    return user.waitFor(
        [&] { return kernel::Session::instance().activeFrame()->variableNumber(assignment) == variable; });
}

void TourContext::typeOver(QLineEdit& field, QString const& text)
{
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, text);
}

void TourContext::saveAs(QString const& file, QString const& picture)
{
    nameFile([this] { user.key(Qt::Key_S, Qt::ControlModifier); }, file, picture);
}

void TourContext::nameFile(std::function<void()> const& ask, QString const& file, QString const& picture)
{
    activate(window);
    int const told = user.unexpectedMessages().size();
    bool isBusy = false;
    bool isFirst = true;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto* const chooser = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (isBusy || !chooser || !chooser->isVisible())
            return;
        if (user.unexpectedMessages().size() > told) { // the file was refused, and the question came back
            user.key(Qt::Key_Escape);
            return;
        }
        isBusy = true;
        auto& name = *chooser->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        typeOver(name, file);
        if (std::exchange(isFirst, false) && !picture.isEmpty())
            user.picture(picture);
        // At once, and again if need be: the dialog takes no name as long as it is still reading folders.
        typeOver(name, file);
        QTest::keyClick(&name, Qt::Key_Return);
        isBusy = false;
    });
    look.start(300);
    ask();
    user.settle();
}

QString TourContext::shownRange(QString const& variable) const
{
    auto const& model = *window.findChild<QAbstractItemView*>(QStringLiteral("variableView"))->model();
    for (int row = 0; row < model.rowCount(); ++row)
        if (model.index(row, VariableTableModel::rangeColumn - 1).data().toString() == variable)
            return model.index(row, VariableTableModel::rangeColumn).data().toString();
    return {};
}

QImage TourContext::plot() const
{
    return window.centralWidget()->grab().toImage();
}

QImage TourContext::restingPlot()
{
    QImage now = plot();
    user.waitFor([&] {
        user.settle(300);
        QImage const before = std::exchange(now, plot());
        return now == before;
    });
    return now;
}

QAction* TourContext::action(char const* objectName) const
{
    for (QMenu* const menu : window.findChildren<QMenu*>())
        for (QAction* const entry : menu->actions())
            if (entry->objectName() == QLatin1String(objectName))
                return entry;
    return nullptr;
}

kernel::DataSet& TourContext::dataSet()
{
    return *kernel::Session::instance().activeDataSet();
}

QString TourContext::variableNames()
{
    QStringList names;
    for (auto const& variable : dataSet().variables())
        names.push_back(QString::fromStdString(variable->name));
    return names.join(QStringLiteral(", "));
}

QString TourContext::zoneNames()
{
    QStringList names;
    for (auto const& zone : dataSet().zones())
        names.push_back(QString::fromStdString(zone->name));
    return names.join(QStringLiteral(", "));
}

} // namespace veldraw::tests
