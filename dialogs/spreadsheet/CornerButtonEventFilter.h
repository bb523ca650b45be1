#pragma once

#include "dialogs/property/Property.h"
#include "platform/signals/SignalConnectionCollection.h"

#include <QObject>

#include <boost/shared_ptr.hpp>

#include <string>

class QAbstractButton;
class QTableView;

namespace veldraw::sdk::ui::propertymanager {

/// Makes the corner button of a table look like a header section that shows the button's text, and keeps the row header
/// as wide as the text needs. The text itself comes from a binding of the button to the same property.
class CornerButtonEventFilter : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the table. The label is kept alive.
    CornerButtonEventFilter(QTableView& table, boost::shared_ptr<Property<std::string>> const& cornerLabel);
    ~CornerButtonEventFilter() override;

    /// Null in a table that has no corner button.
    QAbstractButton* cornerButton() const { return m_cornerButton; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void paintCorner() const;
    void fitRowHeader() const;

    QTableView& m_table;
    QAbstractButton* const m_cornerButton;
    boost::shared_ptr<Property<std::string>> const m_cornerLabel;
    SignalConnectionCollection m_connections;
};

} // namespace veldraw::sdk::ui::propertymanager
