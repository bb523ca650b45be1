#pragma once

#include "dialogs/property/DialogsApi.h"

#include <QObject>

#include <boost/signals2/connection.hpp>

class QWidget;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Holds back the painting of a widget while the application is busy, which is while a `WaitState` is open: a list that
/// changes many times during an operation is painted once, at its end. Signals and properties are never delayed.
///
///     new WidgetUpdateDeferrerOnBusy(*form.table);
///
/// It belongs to the widget. A widget that somebody else keeps from painting stays so.
class VDSDKDIALOGS_DATA_QT_API WidgetUpdateDeferrerOnBusy : public QObject
{
public:
    explicit WidgetUpdateDeferrerOnBusy(QWidget& widget);
    ~WidgetUpdateDeferrerOnBusy() override;

private:
    void busyChanged(bool isBusy);

    QWidget& m_widget;
    bool m_defers = false;
    boost::signals2::scoped_connection m_connection;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
