#include "app/tour/Tour.h"

#include "app/import/Importer.h"
#include "app/window/HelpViewer.h"
#include "dialogs/variableops/DeleteVariableDialog.h"
#include "kernel/frames/Session.h"

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QSet>
#include <QTimer>

namespace veldraw::app {

using dialogs::data::DeleteVariableDialog;

namespace {

kernel::DataSet& dataSet()
{
    return *kernel::Session::instance().activeDataSet();
}

QString text(std::string const& utf8)
{
    return QString::fromStdString(utf8);
}

} // namespace

Tour::Tour(MainWindow& window, QString samples, QString out)
    : m_window(window)
    , m_samples(std::move(samples))
    , m_out(std::move(out))
    , m_user(m_out)
{
}

TourReport const& Tour::run()
{
    openSamples();
    lookAtPlots();
    deleteVariableByMouse();
    undoAndRedo();
    refuseDeletions();
    deleteVariableByKeyboard();
    askForHelp();
    saveResult();
    m_report.check(QStringLiteral("no message came unasked"), QString(),
                   m_user.unexpectedMessages().join(QLatin1Char('|')));
    return m_report;
}

void Tour::openSamples()
{
    activateWindow(m_window);
    QStringList files;
    for (char const* name : {"flow.vtm", "tetra.vtu", "transient.vtm", "timeseries.csv"})
        files.push_back(m_samples + QLatin1Char('/') + QLatin1String(name));
    m_window.openFiles(files, DocumentController::Place::FreshPage);
    m_user.waitFor([] { return kernel::Session::instance().activeDataSet() != nullptr; });
    m_user.settle(1500);
    m_report.check(QStringLiteral("four samples open, a frame each"), QStringLiteral("4"),
                   QString::number(kernel::Session::instance().activePage()->frames.size()));
    m_report.check(QStringLiteral("plots are drawn in colour"), coloursOnPage() > 100);
    m_user.picture(QStringLiteral("samples"));
}

void Tour::lookAtPlots()
{
    m_window.openFiles({m_samples + QStringLiteral("/flow.vtm")}, DocumentController::Place::FreshPage);
    m_user.settle(1500);
    m_namesAtStart = variableNames();
    m_report.check(QStringLiteral("one sample opened on a fresh page"), QStringLiteral("1"),
                   QString::number(kernel::Session::instance().activePage()->frames.size()));
    m_user.picture(QStringLiteral("opened"));
    QImage const before = m_window.centralWidget()->grab().toImage();
    activateWindow(m_window);
    m_user.key(Qt::Key_P, Qt::AltModifier);
    m_user.key(Qt::Key_2);
    m_user.settle(500);
    m_report.check(QStringLiteral("Alt+P, 2 shows a 2D plot that differs from the 3D plot"),
                   m_window.centralWidget()->grab().toImage() != before);
    m_user.picture(QStringLiteral("in-2d"));
    activateWindow(m_window);
    m_user.key(Qt::Key_Z, Qt::ControlModifier);
    m_user.settle(500);
    m_report.check(QStringLiteral("Ctrl+Z goes back to 3D"), QString::number(PlotType_Cartesian3D),
                   QString::number(kernel::Session::instance().activeFrame()->plotType));
}

void Tour::openDeleteDialog()
{
    activateWindow(m_window);
    m_user.key(Qt::Key_D, Qt::AltModifier);
    m_user.settle();
    m_user.key(Qt::Key_D);
    m_user.waitFor([] { return UserDriver::visibleWindow<DeleteVariableDialog>() != nullptr; });
    if (auto* const dialog = UserDriver::visibleWindow<DeleteVariableDialog>()) {
        dialog->move(m_window.mapToGlobal(QPoint(520, 220)));
        activateWindow(*dialog);
    }
}

void Tour::deleteVariableByMouse()
{
    openDeleteDialog();
    auto* const dialog = UserDriver::visibleWindow<DeleteVariableDialog>();
    if (!m_report.check(QStringLiteral("Alt+D, D opens Delete Variable"), dialog != nullptr))
        return;
    m_report.check(QStringLiteral("window title"), QStringLiteral("Delete Variable"), dialog->windowTitle());
    int const before = dataSet().variableCount();
    m_user.clickRow(*variableList(), before - 1);
    m_user.clickRow(*variableList(), before - 2);
    m_user.picture(QStringLiteral("delete-variable-selected"));
    QStringList const said =
        m_user.messagesDuring([&] { m_user.click(*deleteButton()); }, QStringLiteral("delete-variable-told"));
    m_report.check(QStringLiteral("two variables clicked, \"Delete\" clicked: the message"),
                   QStringLiteral("Variable deletion successful"), said.join(QLatin1Char('|')));
    m_report.check(QStringLiteral("two variables fewer in the data set"), QString::number(before - 2),
                   QString::number(dataSet().variableCount()));
    m_user.settle();
    m_report.check(QStringLiteral("two rows fewer in the list"), QString::number(before - 2),
                   QString::number(variableList()->model()->rowCount()));
    m_report.check(QStringLiteral("the dialog stays open with nothing selected"), QString(), selectedRows());
    m_user.picture(QStringLiteral("delete-variable-done"));
}

void Tour::undoAndRedo()
{
    int const fewer = dataSet().variableCount();
    activateWindow(m_window);
    m_report.check(QStringLiteral("the Edit menu names the step"), QStringLiteral("&Undo Delete Variable"),
                   action("undoAction") ? action("undoAction")->text() : QString());
    m_user.key(Qt::Key_Z, Qt::ControlModifier);
    m_user.settle();
    m_report.check(QStringLiteral("Ctrl+Z brings the variables back"), m_namesAtStart, variableNames());
    m_report.check(QStringLiteral("the dialog lists them again"), QString::number(fewer + 2),
                   QString::number(variableList()->model()->rowCount()));
    m_user.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    m_user.settle();
    m_report.check(QStringLiteral("Ctrl+Shift+Z deletes them again"), QString::number(fewer),
                   QString::number(dataSet().variableCount()));
    m_user.key(Qt::Key_Z, Qt::ControlModifier);
    m_user.settle();
}

void Tour::refuseDeletions()
{
    auto* const dialog = UserDriver::visibleWindow<DeleteVariableDialog>();
    if (!dialog)
        return;
    activateWindow(*dialog);
    QStringList said = m_user.messagesDuring([&] { m_user.click(*deleteButton()); });
    m_report.check(QStringLiteral("nothing selected: the message"), QStringLiteral("No variables are selected"),
                   said.join(QLatin1Char('|')));
    activateWindow(*dialog);
    m_user.key(Qt::Key_S, Qt::AltModifier);
    m_user.key(Qt::Key_A, Qt::ControlModifier);
    m_report.check(QStringLiteral("Alt+S, Ctrl+A selects everything"), QString::number(dataSet().variableCount()),
                   QString::number(variableList()->selectionModel()->selectedRows().size()));
    said = m_user.messagesDuring([&] { m_user.click(*deleteButton()); }, QStringLiteral("delete-variable-refused"));
    m_report.check(QStringLiteral("everything selected: the message"),
                   QStringLiteral("Cannot delete the last variable in a data set."), said.join(QLatin1Char('|')));
    m_report.check(QStringLiteral("refusals change nothing"), m_namesAtStart, variableNames());
    m_user.click(*dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Close));
    m_report.check(QStringLiteral("Close takes the dialog off the screen"), !dialog->isVisible());
}

void Tour::deleteVariableByKeyboard()
{
    int const before = dataSet().variableCount();
    openDeleteDialog();
    if (!UserDriver::visibleWindow<DeleteVariableDialog>())
        return;
    m_user.key(Qt::Key_S, Qt::AltModifier);
    // The list keeps its selection from before; the keys choose anew.
    variableList()->clearSelection();
    m_user.key(Qt::Key_End);
    m_user.key(Qt::Key_Space);
    QStringList const said = m_user.messagesDuring([&] { m_user.key(Qt::Key_D, Qt::AltModifier); });
    m_report.check(QStringLiteral("keys alone (Alt+S, End, Space, Alt+D): the message"),
                   QStringLiteral("Variable deletion successful"), said.join(QLatin1Char('|')));
    m_report.check(QStringLiteral("one variable fewer"), QString::number(before - 1),
                   QString::number(dataSet().variableCount()));
}

void Tour::askForHelp()
{
    if (auto* const dialog = UserDriver::visibleWindow<DeleteVariableDialog>())
        activateWindow(*dialog);
    m_user.key(Qt::Key_F1);
    m_user.waitFor([] { return UserDriver::visibleWindow<HelpViewer>() != nullptr; });
    auto* const viewer = UserDriver::visibleWindow<HelpViewer>();
    if (m_report.check(QStringLiteral("F1 opens the help viewer"), viewer != nullptr)) {
        m_user.picture(QStringLiteral("help"));
        viewer->close();
    }
    if (auto* const dialog = UserDriver::visibleWindow<DeleteVariableDialog>()) {
        activateWindow(*dialog);
        m_user.key(Qt::Key_Escape);
        m_report.check(QStringLiteral("Escape closes the dialog"), !dialog->isVisible());
    }
}

void Tour::saveResult()
{
    QString const file = m_out + QStringLiteral("/flow-changed.vtm");
    // A file from an earlier tour would bring up one more question.
    QFile::remove(file);
    activateWindow(m_window);
    QTimer::singleShot(800, &m_window, [&] {
        auto* const chooser = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!chooser)
            return;
        auto* const name = chooser->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        name->setFocus();
        name->selectAll();
        m_user.type(file);
        m_user.picture(QStringLiteral("save-as"));
        m_user.key(Qt::Key_Return);
    });
    m_user.messagesDuring([&] { m_user.key(Qt::Key_S, Qt::ControlModifier); });
    m_user.settle(500);
    if (!m_report.check(QStringLiteral("Ctrl+S, a name, Return: the file is there"), QFileInfo::exists(file)))
        return;
    kernel::DataSet const& saved = *importFile(file).dataSet;
    m_report.check(QStringLiteral("the saved file has what the window shows"),
                   QStringLiteral("%1 zones, %2 variables").arg(dataSet().zoneCount()).arg(dataSet().variableCount()),
                   QStringLiteral("%1 zones, %2 variables").arg(saved.zoneCount()).arg(saved.variableCount()));
}

QListView* Tour::variableList() const
{
    return UserDriver::visibleWindow<DeleteVariableDialog>()->findChild<QListView*>(
        QStringLiteral("deleteVariable_Select_MList"));
}

QPushButton* Tour::deleteButton() const
{
    for (QPushButton* const button : UserDriver::visibleWindow<DeleteVariableDialog>()->findChildren<QPushButton*>())
        if (button->text() == QLatin1String("&Delete"))
            return button;
    return nullptr;
}

QString Tour::variableNames() const
{
    QStringList names;
    for (auto const& variable : dataSet().variables())
        names.push_back(text(variable->name));
    return names.join(QStringLiteral(", "));
}

QString Tour::selectedRows() const
{
    QStringList rows;
    for (QModelIndex const& index : variableList()->selectionModel()->selectedRows())
        rows.push_back(index.data().toString());
    return rows.join(QStringLiteral(", "));
}

QAction* Tour::action(char const* name) const
{
    for (QMenu* const menu : m_window.findChildren<QMenu*>())
        for (QAction* const entry : menu->actions())
            if (entry->objectName() == QLatin1String(name))
                return entry;
    return nullptr;
}

int Tour::coloursOnPage()
{
    QImage const image = m_window.centralWidget()->grab().toImage();
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); y += 2)
        for (int x = 0; x < image.width(); x += 2)
            colours.insert(image.pixel(x, y));
    return colours.size();
}

// Without a window manager nobody else makes a window the active one.
void Tour::activateWindow(QWidget& widget)
{
    widget.raise();
    widget.activateWindow();
    QApplication::setActiveWindow(&widget);
    m_user.settle(100);
}

} // namespace veldraw::app
