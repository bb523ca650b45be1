#pragma once

#include "app/window/SessionFollower.h"

#include <QWidget>

#include <set>

class QLabel;
class QLineEdit;
class QModelIndex;
class QToolButton;

namespace veldraw::app {

class LineMapTableModel;
class LineMapView;

/// What the "Line Maps" dock shows: a table of the curves of the active line plot, to be added, duplicated, deleted, shown and altered.
class LineMapPanel : public QWidget
{
    Q_OBJECT

public:
    explicit LineMapPanel(kernel::Session& session, QWidget* parent = nullptr);

    /// Puts the keyboard focus on the table, or where there is nothing in it on the button that adds.
    void takeFocus();

    /// Narrower than its buttons, which are cut off then: the window is not to be kept from being small.
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The session did not do what was asked for.
    void editRefused();

private:
    using Maps = std::set<kernel::UniqueId>;

    QToolButton* newButton(char const* name, QString const& text, QString const& tip, void (LineMapPanel::*act)());
    void makeLayout();
    void add();
    void duplicate();
    void deleteSelected();
    void showAll();
    void invert();
    void chooseColour(QModelIndex const& index);
    bool perform(kernel::Operation&& operation);
    kernel::NumberSet selectedNumbers() const;
    kernel::NumberSet listedNumbers(bool areShown) const;
    void select(Maps const& maps);
    void takeSelection();
    void filter();
    void refresh();

    kernel::Session& m_session;
    LineMapTableModel* m_model;
    LineMapView* m_view;
    QLabel* m_notice;
    QLineEdit* m_filter;
    QToolButton* m_add;
    QToolButton* m_duplicate;
    QToolButton* m_delete;
    QToolButton* m_all;
    QToolButton* m_invert;
    SessionFollower m_follower;
};

} // namespace veldraw::app
