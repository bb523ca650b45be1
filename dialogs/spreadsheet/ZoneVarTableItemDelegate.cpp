#include "dialogs/spreadsheet/ZoneVarTableItemDelegate.h"

#include "dialogs/bindings/AbandonedInputFilter.h"
#include "dialogs/models/QTableModelAdapter.h"
#include "dialogs/spreadsheet/DataSpreadsheetPropertiesManager.h"
#include "dialogs/spreadsheet/EditedCell.h"
#include "dialogs/spreadsheet/ZoneVarTableModelAbstract.h"
#include "dialogs/widgets/NumberValidators.h"
#include "platform/exception/IOException.h"
#include "platform/vdsdkbase/VelUtilDataValue.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolTip>

#include <boost/pointer_cast.hpp>

#include <charconv>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

using veldraw::ui::NumberValidator;
using veldraw::ui::SinglePrecisionValidator;
using veldraw::ui::WholeNumberValidator;

namespace {

constexpr int widestShort = 2147483646;

QValidator* validatorFor(FieldDataType_e type, QLineEdit& editor)
{
    switch (type) {
    case FieldDataType_Float:
        return new SinglePrecisionValidator(&editor);
    case FieldDataType_Double:
        return new NumberValidator(&editor);
    case FieldDataType_Int32:
        return new WholeNumberValidator(&editor);
    case FieldDataType_Int16:
        return new WholeNumberValidator(-widestShort, widestShort, &editor);
    case FieldDataType_Byte:
        return new WholeNumberValidator(0, 255, &editor);
    case FieldDataType_Bit:
        return new WholeNumberValidator(0, 1, &editor);
    default:
        return nullptr;
    }
}

// The table reads numbers with a decimal point and no separators; a validator that let a comma pass would store
// another number than the user sees.
QLocale localeOfTheTable()
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::RejectGroupSeparator);
    return locale;
}

// Whether the text has a plus sign that belongs to a number; `from_chars` reads no plus.
bool hasPlus(std::string const& text)
{
    return text.size() > 1 && text[0] == '+' && text[1] != '-';
}

// The number that the whole text stands for, as the table writes numbers, whatever the locale; "nan" and "inf" are numbers.
std::optional<double> numberIn(std::string const& text)
{
    double number = 0.0;
    char const* const begin = text.data() + (hasPlus(text) ? 1 : 0);
    char const* const end = text.data() + text.size();
    std::from_chars_result const result = std::from_chars(begin, end, number);
    return result.ec == std::errc() && result.ptr == end ? std::optional<double>(number) : std::nullopt;
}

ModelIndex tableIndex(QModelIndex const& index)
{
    if (auto const* const adapter = qobject_cast<QTableModelAdapter const*>(index.model()))
        return adapter->tableIndex(index);
    return ModelIndex(static_cast<unsigned long long>(index.row()), static_cast<unsigned long long>(index.column()));
}

void limitToType(QLineEdit& editor, FieldDataType_e type)
{
    QValidator* const validator = validatorFor(type, editor);
    if (!validator)
        return;
    validator->setLocale(localeOfTheTable());
    editor.setValidator(validator);
}

bool isAcceptable(QLineEdit const& editor)
{
    QString text = editor.text();
    int position = 0;
    return !editor.validator() || editor.validator()->validate(text, position) == QValidator::Acceptable;
}

} // namespace

ZoneVarTableItemDelegate::ZoneVarTableItemDelegate(propertymanager::DataSpreadsheetPropertiesManager const& manager,
                                                   QObject* parent)
    : QStyledItemDelegate(parent)
    , m_manager(manager)
{
}

ZoneVarTableItemDelegate::~ZoneVarTableItemDelegate() = default;

QWidget* ZoneVarTableItemDelegate::createEditor(QWidget* parent, QStyleOptionViewItem const& option,
                                                QModelIndex const& index) const
{
    std::unique_ptr<QWidget> editor(QStyledItemDelegate::createEditor(parent, option, index));
    auto* const lineEdit = qobject_cast<QLineEdit*>(editor.get());
    auto const table = shownTable();
    if (lineEdit && table) {
        lineEdit->setAlignment(Qt::AlignRight);
        ModelIndex const cell = tableIndex(index);
        try {
            limitToType(*lineEdit, table->fieldDataType(cell));
        } catch (IOException const&) {
            return nullptr; // nothing can be entered where it is unknown what a value may be
        }
        new EditedCell(*lineEdit, *table, cell);
    }
    return editor.release();
}

boost::shared_ptr<ZoneVarTableModelAbstract> ZoneVarTableItemDelegate::shownTable() const
{
    return boost::dynamic_pointer_cast<ZoneVarTableModelAbstract>(m_manager.tableModel());
}

void ZoneVarTableItemDelegate::setEditorData(QWidget* editor, QModelIndex const& index) const
{
    auto const* const lineEdit = qobject_cast<QLineEdit const*>(editor);
    if (!lineEdit || !lineEdit->isModified())
        QStyledItemDelegate::setEditorData(editor, index);
}

void ZoneVarTableItemDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, QModelIndex const& index) const
{
    auto* const lineEdit = qobject_cast<QLineEdit*>(editor);
    if (lineEdit) {
        veldraw::ui::dropBlanksAround(*lineEdit); // the table knows the plain ones only
        if (!isAcceptable(*lineEdit))
            return;
    }
    EditedCell const* const edited = EditedCell::of(*editor);
    if (!edited || edited->isAt(tableIndex(index), *m_manager.tableModel()))
        QStyledItemDelegate::setModelData(editor, model, index);
    else if (lineEdit && lineEdit->isModified())
        edited->write(lineEdit->text().toStdString(), m_manager.spreadsheetAlterShared()->value());
}

void ZoneVarTableItemDelegate::initStyleOption(QStyleOptionViewItem* option, QModelIndex const& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
}

QString ZoneVarTableItemDelegate::displayText(QVariant const& value, QLocale const&) const
{
    // The base class gets a text: it would write a number in its own format.
    return QStyledItemDelegate::displayText(shownText(value), QLocale(QLocale::English, QLocale::UnitedStates));
}

QString ZoneVarTableItemDelegate::shownText(QVariant const& value) const
{
    QString const text = value.toString();
    if (text == QLatin1String("Not Loaded"))
        return text;
    m_formatter.formatting(m_manager.spreadsheetFormat()->value())
        .precision(static_cast<std::size_t>(m_manager.spreadsheetPrecision()->value()));
    std::optional<double> const number = numberIn(text.toStdString());
    return number ? QString::fromStdString(m_formatter.format(*number)) : QString();
}

bool ZoneVarTableItemDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, QStyleOptionViewItem const& option,
                                         QModelIndex const& index)
{
    auto const table = shownTable();
    bool const asksForTip = event->type() == QEvent::ToolTip && index.isValid() && table;
    if (!asksForTip || !VelUtilDataValueIsPassive(table->zone(), table->variableNumber(tableIndex(index).column + 1)))
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QToolTip::showText(event->globalPos(),
                       QStringLiteral("This variable has no values in this zone, so they can't be edited."),
                       view->viewport(), view->visualRect(index));
    return true;
}

bool ZoneVarTableItemDelegate::eventFilter(QObject* watched, QEvent* event)
{
    auto* const editor = qobject_cast<QWidget*>(watched);
    if (editor && AbandonedInputFilter::isAbandoned(*editor, *event)) {
        // The base class would commit.
        Q_EMIT closeEditor(editor, QAbstractItemDelegate::NoHint);
        return true;
    }
    if (editor && event->type() == QEvent::KeyPress) {
        int const key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            // The base class would put the commit off until later.
            Q_EMIT commitData(editor);
            Q_EMIT closeEditor(editor, QAbstractItemDelegate::NoHint);
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
