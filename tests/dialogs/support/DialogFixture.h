#pragma once

#include "tests/dialogs/models/SampleSession.h"
#include "tests/dialogs/support/DialogTraits.h"
#include "tests/dialogs/support/RecordedMessages.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

class QAbstractItemModel;
class QAbstractItemView;
class QDialogButtonBox;
class QListView;
class QPushButton;

namespace veldraw::tests {

/// A dialog over a data set with the zones Wing, Body and Tail and the variables X, Y, P and T; and the hands of its user.
class DialogFixture : public testing::Test
{
protected:
    explicit DialogFixture(DialogTraits dialogTraits);
    ~DialogFixture() override;

    dialogs::common::QtDialogAbstract& dialog() { return traits.instance(*mainWindow); }

    /// The dialog on the screen, in front, with nothing left to do.
    dialogs::common::QtDialogAbstract& launched();

    /// The list or table.
    QAbstractItemView& view();
    QListView& list();
    /// What a combo box or list got from its binding and loses with it.
    QAbstractItemModel& boundModel(std::string const& objectName);
    /// Of the first of those bindings.
    QAbstractItemModel& firstBoundModel() { return boundModel(boundInOrder().front()); }
    std::vector<std::string> boundInOrder() const;
    QDialogButtonBox& buttonBox();
    bool hasAction() const { return !traits.action.empty(); }
    QPushButton& actionButton();

    void clickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { clickRowOf(view(), row, modifiers); }
    static void clickRowOf(QAbstractItemView& view, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Selects what a button needs that is disabled otherwise.
    void selectForAction();
    void clickAction();
    void clickClose();

    /// Texts of all rows, selected ones with a star.
    std::vector<std::string> rows() { return rowsOf(view()); }
    static std::vector<std::string> rowsOf(QAbstractItemView const& view);

    std::vector<std::string> zoneNames() const;
    std::vector<std::string> variableNames() const;

    /// Lets the values of all fields wait to be loaded.
    void deferVariables();

    DialogTraits const traits;
    RecordedMessages messages;
    SampleSession sample{{"Wing", "Body", "Tail"}, {"X", "Y", "P", "T"}};
    std::unique_ptr<QWidget> mainWindow;
};

} // namespace veldraw::tests
