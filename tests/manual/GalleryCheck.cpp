#include "tests/manual/GalleryCheck.h"

#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/manual/GalleryWindow.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

#include <cstdio>

namespace veldraw::tests {

namespace {

void settle()
{
    QApplication::processEvents();
    sdk::ui::common::IdleDispatcher::flush();
    QApplication::processEvents();
}

QString lookOf(QListView const& view)
{
    QStringList rows;
    for (int row = 0; row < view.model()->rowCount(); ++row) {
        QModelIndex const index = view.model()->index(row, 0);
        QString const text = index.data().toString();
        rows += view.selectionModel()->isSelected(index) ? QStringLiteral("[%1]").arg(text) : text;
    }
    return rows.join(QStringLiteral(" | "));
}

QString lookOf(QWidget const& widget)
{
    if (auto const* const field = qobject_cast<QLineEdit const*>(&widget))
        return field->text();
    if (auto const* const edit = qobject_cast<QTextEdit const*>(&widget))
        return edit->toPlainText();
    if (auto const* const box = qobject_cast<QAbstractSpinBox const*>(&widget))
        return box->text();
    if (auto const* const box = qobject_cast<QComboBox const*>(&widget))
        return box->currentText();
    if (auto const* const label = qobject_cast<QLabel const*>(&widget))
        return label->text();
    if (auto const* const button = qobject_cast<QAbstractButton const*>(&widget))
        return button->text() + (button->isChecked() ? QStringLiteral(" on") : QStringLiteral(" off"));
    if (auto const* const view = qobject_cast<QListView const*>(&widget))
        return lookOf(*view);
    QStringList buttons; // a group
    for (QAbstractButton const* const button : widget.findChildren<QAbstractButton*>())
        buttons += lookOf(static_cast<QWidget const&>(*button));
    return buttons.join(QStringLiteral(" | "));
}

} // namespace

GalleryCheck::GalleryCheck(GalleryWindow& window)
    : m_window(window)
{
}

bool GalleryCheck::run()
{
    m_window.show();
    m_window.activateWindow();
    if (!QTest::qWaitForWindowActive(&m_window)) {
        std::puts("FAILED the window never became active");
        return false;
    }
    settle();
    for (GalleryRow const& row : m_window.rows()) {
        m_firstValues[row.control->objectName()] = row.value->toolTip();
        m_firstLooks[row.control->objectName()] = lookOf(*row.control);
    }
    driveText();
    driveNumbers();
    driveChoices();
    driveKernel();
    checkThatEachWasUsed();
    checkStartValues();
    std::printf("%d failures\n", m_failures);
    return m_failures == 0;
}

void GalleryCheck::driveText()
{
    expect("text", "\"Tail\"", [this] { type("text", "Tail"); });
    expect("label", "\"Tail\"", [] {});
    compare(QStringLiteral("the label"), find<QLabel>("label").text(), QStringLiteral("Tail"));
    expect("caption", "\"Tail\"", [] {});
    compare(QStringLiteral("the button's text"), find<QAbstractButton>("caption").text(), QStringLiteral("Tail"));
    expect("whole", "80", [this] { type("whole", "80"); });
    expect("wide", "2000000000", [this] { type("wide", "2000000000"); });
    expect("number", "0.1234567890123", [this] { type("number", "0.1234567890123"); });
    expect("lines", "\"One\\nTwo\"", [this] {
        auto& edit = find<QTextEdit>("lines");
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, QStringLiteral("One"));
        QTest::keyClick(&edit, Qt::Key_Return);
        QTest::keyClicks(&edit, QStringLiteral("Two"));
        QTest::keyClick(&edit, Qt::Key_Tab);
    });
}

void GalleryCheck::driveNumbers()
{
    expect("copies", "4", [this] { press("copies", Qt::Key_Up); });
    expect("copies", "7", [this] { type("copies", "7"); });
    expect("index", "39", [this] { press("index", Qt::Key_Down); });
    expect("factor", "0.11", [this] { press("factor", Qt::Key_Up); });
    expect("factor", "2.5e-07", [this] { type("factor", "2.5e-7"); });
    expect("angle", "31", [this] { press("angle", Qt::Key_Up); });
    expect("unit", "1", [this] { press("unit", Qt::Key_Down); });
    expect("angle", "180", [this] { type("angle", "3.14159265358979323846"); });
}

void GalleryCheck::driveChoices()
{
    expect("window", "2", [this] { press("window", Qt::Key_Down); });
    expect("outside", "1", [this] { click("constant"); });
    expect("axis", "'Y'", [this] { click("axisY"); });
    expect("check", "false", [this] { click("check"); });
    expect("inverted", "false", [this] { click("inverted"); });
    expect("button", "1", [this] { click("button"); });

    auto& field = find<QLineEdit>("governed");
    compare(QStringLiteral("usable before"), QVariant(field.isEnabled()).toString(), QStringLiteral("false"));
    expect("usable", "true", [this] { click("usable"); });
    compare(QStringLiteral("usable after"), QVariant(field.isEnabled()).toString(), QStringLiteral("true"));
    expect("governed", "\"free\"", [this] { type("governed", "free"); });
    expect("shown", "false", [this] { click("shown"); });
    compare(QStringLiteral("shown after"), QVariant(field.isVisible()).toString(), QStringLiteral("false"));
}

void GalleryCheck::driveKernel()
{
    expect("zones", "{2}", [this] { choose("zones", 1); });
    expect("zone", "2", [this] { press("zone", Qt::Key_Down); });
    expect("newName", "\"Flap\"", [this] { type("newName", "Flap"); });
    click("rename");
    compare(QStringLiteral("renamed in the list"), rowsOf("zones").section(QStringLiteral(" | "), 1, 1),
            QStringLiteral("[2: Flap]"));
    compare(QStringLiteral("renamed in the combo box"), find<QComboBox>("zone").currentText(),
            QStringLiteral("2: Flap"));
    expect("zones", "{}", [this] { click("disable"); });
    expect("zone", "1", [] {});
    click("enableAll");
    for (int step = 0; step < 3; ++step) // enabling, disabling, the name
        click("undo");
    compare(QStringLiteral("zones after undo"), rowsOf("zones").section(QStringLiteral(" | "), 0, 2),
            QStringLiteral("1: Surface | 2: Slat | 3: Wake, t = 0"));

    expect("zones", "{1}", [this] { choose("zones", 0); });
    int const before = find<QListView>("zones").model()->rowCount();
    click("duplicate");
    compare(QStringLiteral("a copy in the list"), QString::number(find<QListView>("zones").model()->rowCount()),
            QString::number(before + 1));
    click("undo");
    expect("zone", "3", [this] {
        press("zone", Qt::Key_Down);
        press("zone", Qt::Key_Down);
    });

    expect("groups", "{1}", [this] { choose("groups", 0); });
    expect("grouped", "true", [this] { click("grouped"); });

    expect("variables", "{4}", [this] { choose("variables", 3); });
    expect("variable", "1", [this] { click("delete"); });
    expect("variables", "{}", [] {});
    click("undo");
    expect("variables", "{2}", [this] { choose("variables", 1); });
}

void GalleryCheck::checkThatEachWasUsed()
{
    for (GalleryRow const& row : m_window.rows())
        compare(QStringLiteral("used: ") + row.control->objectName(),
                QVariant(m_wasUsed[row.control->objectName()]).toString(), QStringLiteral("true"));
}

void GalleryCheck::checkStartValues()
{
    click("startValues");
    for (GalleryRow const& row : m_window.rows()) {
        QString const name = row.control->objectName();
        compare(QStringLiteral("start value of ") + name, row.value->toolTip(), m_firstValues[name]);
        compare(QStringLiteral("first look of ") + name, lookOf(*row.control), m_firstLooks[name]);
    }
}

void GalleryCheck::expect(char const* control, char const* value, std::function<void()> const& action)
{
    action();
    settle();
    QString const name = QString::fromUtf8(control);
    QString const found = find<QLabel>(qPrintable(name + QStringLiteral("Value"))).toolTip();
    compare(name, found, QString::fromUtf8(value));
    if (found != m_firstValues[name])
        m_wasUsed[name] = true;
}

void GalleryCheck::compare(QString const& what, QString const& found, QString const& expected)
{
    if (found == expected) {
        std::printf("ok     %s: %s\n", qPrintable(what), qPrintable(found));
        return;
    }
    ++m_failures;
    std::printf("FAILED %s: %s instead of %s\n", qPrintable(what), qPrintable(found), qPrintable(expected));
}

void GalleryCheck::type(char const* field, char const* text)
{
    auto& control = find<QWidget>(field);
    control.setFocus();
    QTest::keyClick(&control, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&control, QString::fromUtf8(text));
    QTest::keyClick(&control, Qt::Key_Return);
    settle();
}

void GalleryCheck::click(char const* button)
{
    auto& widget = find<QAbstractButton>(button);
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, QPoint(12, widget.height() / 2));
    settle();
}

void GalleryCheck::choose(char const* list, int row)
{
    auto& view = find<QListView>(list);
    QModelIndex const index = view.model()->index(row, 0);
    view.scrollTo(index);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, view.visualRect(index).center());
    settle();
}

void GalleryCheck::press(char const* control, Qt::Key key)
{
    auto& widget = find<QWidget>(control);
    widget.setFocus();
    QTest::keyClick(&widget, key);
    settle();
}

QString GalleryCheck::rowsOf(char const* list) const
{
    return lookOf(find<QListView>(list));
}

template <typename Widget>
Widget& GalleryCheck::find(char const* name) const
{
    auto* const widget = m_window.findChild<Widget*>(QString::fromUtf8(name));
    if (!widget)
        qFatal("the gallery has no %s", name);
    return *widget;
}

} // namespace veldraw::tests
