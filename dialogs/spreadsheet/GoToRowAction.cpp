#include "dialogs/spreadsheet/GoToRowAction.h"

#include "dialogs/spreadsheet/TableWindow.h"
#include "dialogs/widgets/NumberValidators.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

namespace veldraw::sdk::ui::propertymanager {

namespace {

// A number of 64 bits, which no integer validator of Qt takes.
unsigned long long rowIn(QString const& text)
{
    bool isNumber = false;
    unsigned long long const row = veldraw::ui::withoutBlanksAround(text).toULongLong(&isNumber);
    return isNumber ? row : 0;
}

} // namespace

GoToRowAction::GoToRowAction(TableWindow& window, QTableView& table)
    : QAction(QStringLiteral("&Go to Row..."), &table)
    , m_window(window)
    , m_table(table)
{
    setObjectName(QStringLiteral("dataSpreadsheet_GoToRow_Action"));
    setShortcut(QKeySequence(Qt::CTRL | Qt::Key_G));
    setShortcutContext(Qt::WindowShortcut);
    connect(this, &QAction::triggered, this, &GoToRowAction::ask);
}

GoToRowAction::~GoToRowAction() = default;

void GoToRowAction::ask()
{
    unsigned long long const rows = m_window.total(Qt::Vertical);
    if (rows == 0 || m_window.total(Qt::Horizontal) == 0)
        return;
    auto* const dialog =
        new QDialog(&m_table, Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    dialog->setObjectName(QStringLiteral("GoToRow"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(QStringLiteral("Go to Row"));
    auto* const layout = new QFormLayout(dialog);
    auto* const number = new QLineEdit(dialog);
    number->setObjectName(QStringLiteral("goToRow_Row_Text"));
    layout->addRow(QStringLiteral("&Row (1 to %1):").arg(rows), number);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dialog);
    layout->addRow(buttons);
    QPushButton* const ok = buttons->button(QDialogButtonBox::Ok);
    ok->setEnabled(false);
    // The table may have another size by the time the number is complete.
    connect(number, &QLineEdit::textChanged, this, [this, ok](QString const& text) {
        unsigned long long const row = rowIn(text);
        ok->setEnabled(row >= 1 && row <= m_window.total(Qt::Vertical));
    });
    connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    connect(dialog, &QDialog::accepted, this, [this, number] { goTo(number->text()); });
    dialog->open();
}

void GoToRowAction::goTo(QString const& rowNumber)
{
    unsigned long long const row = rowIn(rowNumber);
    if (row == 0)
        return;
    unsigned long long const column =
        m_window.current() ? m_window.current()->column : m_window.position(Qt::Horizontal);
    m_window.setCurrent(TableWindow::Cell(row - 1, column), false);
    m_table.setFocus();
}

} // namespace veldraw::sdk::ui::propertymanager
