#include "tests/dialogs/support/FormTable.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QStackedLayout>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>

#include <map>
#include <set>
#include <utility>

namespace veldraw::tests {

namespace {

QString textOf(QWidget const& widget)
{
    QVariant const text = widget.property("text");
    return text.isValid() ? text.toString() : widget.property("title").toString();
}

bool isButtonOfBox(QWidget const& widget)
{
    return qobject_cast<QAbstractButton const*>(&widget) && qobject_cast<QDialogButtonBox*>(widget.parentWidget());
}

// The buttons by which a row of tabs is scrolled have names.
bool isMadeByQt(QWidget const& widget)
{
    return widget.objectName().startsWith(QLatin1String("qt_")) || qobject_cast<QTabBar*>(widget.parentWidget());
}

bool belongsToForm(QWidget const& widget)
{
    return isButtonOfBox(widget) || (!widget.objectName().isEmpty() && !isMadeByQt(widget));
}

std::string line(QWidget const& widget, QString const& text)
{
    auto const* const label = qobject_cast<QLabel const*>(&widget);
    QString const buddy = label && label->buddy() ? label->buddy()->objectName() : QString();
    return (widget.objectName() + QStringLiteral(" | ") + QLatin1String(widget.metaObject()->className()) +
            QStringLiteral(" | ") + text + QStringLiteral(" | ") + widget.toolTip() + QStringLiteral(" | ") + buddy)
        .toStdString();
}

QList<QWidget*> formWidgets(QDialog const& dialog)
{
    QList<QWidget*> widgets;
    for (QWidget* const widget : dialog.findChildren<QWidget*>())
        if (belongsToForm(*widget))
            widgets.append(widget);
    return widgets;
}

bool isInput(QWidget const& widget)
{
    return qobject_cast<QLineEdit const*>(&widget) || qobject_cast<QAbstractSpinBox const*>(&widget) ||
           qobject_cast<QComboBox const*>(&widget) || qobject_cast<QAbstractItemView const*>(&widget) ||
           qobject_cast<QTextEdit const*>(&widget) || qobject_cast<QAbstractButton const*>(&widget);
}

using TextOfWidget = std::pair<QString, QWidget const*>;

std::vector<TextOfWidget> textsWithMnemonics(QDialog const& dialog)
{
    std::vector<TextOfWidget> texts;
    for (QWidget const* const widget : formWidgets(dialog)) {
        auto const* const label = qobject_cast<QLabel const*>(widget);
        if ((label && label->buddy()) || qobject_cast<QAbstractButton const*>(widget) ||
            qobject_cast<QGroupBox const*>(widget))
            texts.emplace_back(textOf(*widget), widget);
        if (auto const* const tabs = qobject_cast<QTabWidget const*>(widget))
            for (int index = 0; index < tabs->count(); ++index)
                texts.emplace_back(tabs->tabText(index), widget);
    }
    return texts;
}

std::string placeOf(QLayout& layout, int item)
{
    auto* const grid = qobject_cast<QGridLayout*>(&layout);
    if (!grid)
        return (qobject_cast<QStackedLayout*>(&layout) ? "page " : "") + std::to_string(item);
    int row = -1, column = -1, rowSpan = -1, columnSpan = -1;
    grid->getItemPosition(item, &row, &column, &rowSpan, &columnSpan);
    return std::to_string(row) + ", " + std::to_string(column) + ", " + std::to_string(rowSpan) + ", " +
           std::to_string(columnSpan);
}

void addPlaces(QWidget& widget, std::vector<std::string>& lines);

void addPlaces(QLayout& layout, QString const& name, std::vector<std::string>& lines)
{
    for (int item = 0; item < layout.count(); ++item) {
        QLayoutItem& here = *layout.itemAt(item);
        QObject const* const thing = here.widget() ? static_cast<QObject*>(here.widget()) : here.layout();
        std::string const alignment =
            here.alignment() ? " | alignment " + std::to_string(static_cast<int>(here.alignment())) : "";
        lines.push_back(name.toStdString() + " | " + placeOf(layout, item) + " | " +
                        (thing ? thing->objectName().toStdString() : "spacer") + alignment);
    }
    for (int item = 0; item < layout.count(); ++item) {
        if (QWidget* const widget = layout.itemAt(item)->widget())
            addPlaces(*widget, lines);
        else if (QLayout* const inner = layout.itemAt(item)->layout())
            addPlaces(*inner, inner->objectName(), lines);
    }
}

void addPlaces(QWidget& widget, std::vector<std::string>& lines)
{
    if (!widget.layout() || qobject_cast<QDialogButtonBox*>(&widget))
        return;
    bool const isStack = qobject_cast<QStackedLayout*>(widget.layout());
    addPlaces(*widget.layout(), isStack ? widget.objectName() : widget.layout()->objectName(), lines);
}

// Whether two widgets of a form are on different pages of one stack.
bool areAlternatives(QWidget const* one, QWidget const* other)
{
    QWidget const* common = one;
    while (common && common != other && !common->isAncestorOf(other))
        common = common->parentWidget();
    return qobject_cast<QStackedWidget const*>(common) != nullptr;
}

} // namespace

std::vector<std::string> formTable(QDialog const& dialog)
{
    std::vector<std::string> lines{line(dialog, dialog.windowTitle())};
    for (QWidget const* const widget : formWidgets(dialog))
        lines.push_back(line(*widget, textOf(*widget)));
    return lines;
}

std::vector<std::string> formLayout(QDialog const& dialog)
{
    std::vector<std::string> lines;
    if (dialog.layout())
        addPlaces(*dialog.layout(), dialog.layout()->objectName(), lines);
    return lines;
}

std::vector<std::string> tabOrder(QDialog const& dialog)
{
    std::vector<std::string> names;
    for (QWidget const* widget = dialog.nextInFocusChain(); widget != &dialog; widget = widget->nextInFocusChain()) {
        bool const takesTab = (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        if (!takesTab || !belongsToForm(*widget))
            continue;
        QString const name = widget->objectName();
        names.push_back((name.isEmpty() ? QStringLiteral("[%1]").arg(textOf(*widget)) : name).toStdString());
    }
    return names;
}

std::vector<std::string> repeatedMnemonics(QDialog const& dialog)
{
    std::map<std::string, std::vector<QWidget const*>> uses;
    std::set<std::string> repeated;
    for (auto const& [text, widget] : textsWithMnemonics(dialog)) {
        QKeySequence const mnemonic = QKeySequence::mnemonic(text);
        if (mnemonic.isEmpty())
            continue;
        std::string const letter = mnemonic.toString(QKeySequence::PortableText).toStdString();
        for (QWidget const* const user : uses[letter])
            if (!areAlternatives(user, widget))
                repeated.insert(letter);
        uses[letter].push_back(widget);
    }
    return {repeated.begin(), repeated.end()};
}

std::vector<std::string> inputsWithoutAccessibleName(QDialog const& dialog)
{
    std::vector<std::string> nameless;
    for (QWidget* const widget : formWidgets(dialog)) {
        QAccessibleInterface const* const accessible = QAccessible::queryAccessibleInterface(widget);
        if (isInput(*widget) && (!accessible || accessible->text(QAccessible::Name).isEmpty()))
            nameless.push_back(widget->objectName().toStdString());
    }
    return nameless;
}

} // namespace veldraw::tests
