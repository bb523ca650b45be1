#pragma once

#include "tests/dialogs/support/RecordedMessages.h"

#include <QCoreApplication>
#include <QDialog>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QString>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>
#include <string>

namespace veldraw::tests {

/// A dialog with two fields and a default button, driven as a person does; what the user is told is recorded.
class FieldWindow
{
public:
    FieldWindow()
    {
        auto* const layout = new QVBoxLayout(&dialog);
        for (QWidget* const widget : {static_cast<QWidget*>(before), static_cast<QWidget*>(field),
                                      static_cast<QWidget*>(after), static_cast<QWidget*>(button)})
            layout->addWidget(widget);
        button->setDefault(true);
        QObject::connect(button, &QPushButton::clicked, &dialog, [this] { ++clicks; });
        dialog.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }

    /// Types over what the field shows.
    void type(std::string const& text)
    {
        field->setFocus();
        field->selectAll();
        if (text.empty())
            QTest::keyClick(field, Qt::Key_Delete);
        else
            QTest::keyClicks(field, QString::fromStdString(text));
    }
    void press(Qt::Key key) { QTest::keyClick(field, key); }
    void enter(std::string const& text)
    {
        type(text);
        press(Qt::Key_Return);
    }

    /// Takes the focus away, straight at the field. For what throws: Qt loses memory when an exception passes its way for
    /// keys, and this way holds none.
    void leave()
    {
        QFocusEvent focusOut(QEvent::FocusOut, Qt::TabFocusReason);
        QCoreApplication::sendEvent(field, &focusOut);
    }

    std::string shown() const { return field->text().toStdString(); }

    QDialog dialog;
    QLineEdit* const before = new QLineEdit;
    QLineEdit* const field = new QLineEdit;
    QLineEdit* const after = new QLineEdit;
    QPushButton* const button = new QPushButton(QStringLiteral("&Apply"));
    int clicks = 0;
    RecordedMessages messages;
};

} // namespace veldraw::tests
