#pragma once

#include "dialogs/models/TableModelInterface.h"
#include "platform/vdsdkcommon/ShownValues.h"

#include <QObject>

class QAbstractItemView;

namespace veldraw::sdk::ui::propertymanager {

/// Keeps the values of a table in memory as long as a view of it is on the screen.
class ShownTableValues : public QObject
{
    Q_OBJECT

public:
    using TableModel = dialogs::propertybindings::models::TableModelInterface;

    /// Belongs to the view.
    explicit ShownTableValues(QAbstractItemView& view);
    ~ShownTableValues() override;

    /// The view shows this table from now on.
    void follow(TableModel const& table);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void declare();

    QAbstractItemView& m_view;
    int m_zone = 0; // 0: the table has no values
    toolbox::Set m_variables;
    ShownValues m_shown;
};

} // namespace veldraw::sdk::ui::propertymanager
