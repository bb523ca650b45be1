#include "dialogs/spreadsheet/ZoneVarTableItemDelegate.h"

#include "dialogs/models/QTableModelAdapter.h"
#include "dialogs/spreadsheet/DataSpreadsheetPropertiesManager.h"
#include "dialogs/spreadsheet/ZoneVarTableModelAbstract.h"

#include <QDoubleValidator>
#include <QIntValidator>
#include <QKeyEvent>
#include <QLineEdit>

#include <boost/pointer_cast.hpp>

#include <charconv>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

namespace {

constexpr int mostDecimals = 1000;
constexpr int widestShort = 2147483646;

QValidator* validatorFor(FieldDataType_e type, QLineEdit& editor)
{
    constexpr double largestFloat = std::numeric_limits<float>::max();
    switch (type) {
    case FieldDataType_Float:
        return new QDoubleValidator(-largestFloat, largestFloat, mostDecimals, &editor);
    case FieldDataType_Double:
        return new QDoubleValidator(&editor);
    case FieldDataType_Int32:
        return new QIntValidator(&editor);
    case FieldDataType_Int16:
        return new QIntValidator(-widestShort, widestShort, &editor);
    case FieldDataType_Byte:
        return new QIntValidator(0, 255, &editor);
    case FieldDataType_Bit:
        return new QIntValidator(0, 1, &editor);
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

// All of the text, as the table writes it, so not in the locale of the process; "nan" and "inf" are numbers.
std::optional<double> numberIn(std::string const& text)
{
    double number = 0.0;
    char const* const end = text.data() + text.size();
    std::from_chars_result const result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end ? std::optional<double>(number) : std::nullopt;
}

ModelIndex tableIndex(QModelIndex const& index)
{
    if (auto const* const adapter = qobject_cast<QTableModelAdapter const*>(index.model()))
        return adapter->tableIndex(index);
    return ModelIndex(static_cast<unsigned long long>(index.row()), static_cast<unsigned long long>(index.column()));
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
    QWidget* const editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (auto* const lineEdit = qobject_cast<QLineEdit*>(editor))
        limitToType(*lineEdit, index);
    return editor;
}

void ZoneVarTableItemDelegate::limitToType(QLineEdit& editor, QModelIndex const& index) const
{
    auto const table = boost::dynamic_pointer_cast<ZoneVarTableModelAbstract>(m_manager.tableModel());
    if (!table)
        return;
    QValidator* const validator = validatorFor(table->fieldDataType(tableIndex(index)), editor);
    if (!validator)
        return;
    validator->setLocale(localeOfTheTable());
    editor.setValidator(validator);
}

void ZoneVarTableItemDelegate::setEditorData(QWidget* editor, QModelIndex const& index) const
{
    auto const* const lineEdit = qobject_cast<QLineEdit const*>(editor);
    if (!lineEdit || !lineEdit->isModified())
        QStyledItemDelegate::setEditorData(editor, index);
}

void ZoneVarTableItemDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, QModelIndex const& index) const
{
    auto const* const lineEdit = qobject_cast<QLineEdit const*>(editor);
    if (lineEdit && lineEdit->validator()) {
        QString text = lineEdit->text();
        int position = 0;
        if (lineEdit->validator()->validate(text, position) != QValidator::Acceptable)
            return;
    }
    QStyledItemDelegate::setModelData(editor, model, index);
}

QString ZoneVarTableItemDelegate::displayText(QVariant const& value, QLocale const&) const
{
    // A text and not a number goes to the base class, which would write a number in its own way.
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

bool ZoneVarTableItemDelegate::eventFilter(QObject* watched, QEvent* event)
{
    auto* const editor = qobject_cast<QWidget*>(watched);
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
