#pragma once

#include "app/window/MainWindow.h"
#include "host/KernelBridge.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"

#include <QAbstractItemView>
#include <QApplication>

#include <memory>
#include <stdexcept>

namespace veldraw::bench {

/// The main window over 5,000 zones: small sheets side by side.
class ManyZonesWindow
{
public:
    static constexpr int zoneCount = 5000;

    /// @param view the middle of the window
    explicit ManyZonesWindow(app::CentralView const& view)
        : m_session(kernel::Session::instance())
    {
        host::KernelBridge::install();
        auto const frame = std::make_shared<kernel::Frame>("many", kernel::Rectangle{});
        frame->dataSet = manyZones();
        frame->plotType = PlotType_Cartesian2D;
        frame->axes2D = {frame->dataSet->variable(1)->id, frame->dataSet->variable(2)->id};
        frame->contourVariable = frame->dataSet->variable(3)->id;
        m_session.openPage({frame});
        m_window = std::make_unique<app::MainWindow>(m_session, view, app::DocumentController::FileReader());
        m_window->show();
        settle();
        if (list().model()->rowCount() != zoneCount)
            throw std::runtime_error("the zones are not listed");
    }

    /// As the event loop does when it comes to rest.
    static void settle()
    {
        QApplication::processEvents();
        sdk::ui::common::IdleDispatcher::flush();
        QApplication::processEvents();
    }

    kernel::Session& session() { return m_session; }
    kernel::DataSet& dataSet() { return *m_session.activeDataSet(); }
    QAbstractItemView& list() { return *m_window->findChild<QAbstractItemView*>(QStringLiteral("zoneView")); }

private:
    static std::shared_ptr<kernel::DataSet> manyZones()
    {
        auto set = std::make_shared<kernel::DataSet>("many");
        for (char const* const name : {"X", "Y", "P"})
            set->addVariable(std::make_shared<kernel::Variable>(name));
        for (int n = 0; n < zoneCount; ++n) {
            auto zone = std::make_shared<kernel::Zone>("zone " + std::to_string(n), ZoneType_Ordered, 4, 4, 1);
            for (int variable = 0; variable < 3; ++variable) {
                auto const values = kernel::Buffer::allocate(FieldDataType_Float, 16);
                for (int point = 0; point < 16; ++point)
                    values->setValue(point, variable == 0   ? 4 * (n % 100) + point % 4
                                            : variable == 1 ? 4 * (n / 100) + point / 4
                                                            : n);
                zone->fields.emplace_back(std::make_shared<kernel::ShareGroup>(values), ValueLocation_Nodal);
            }
            set->addZone(zone);
        }
        return set;
    }

    kernel::Session& m_session;
    std::unique_ptr<app::MainWindow> m_window;
};

} // namespace veldraw::bench
