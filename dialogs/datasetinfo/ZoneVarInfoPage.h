#pragma once

#include <QObject>

#include <memory>

class QWidget;

namespace Ui {
class DataSetInfo;
}

namespace veldraw::dialogs::data {

/// The page of the data set information dialog on one zone and one variable: ties a manager to the widgets of the form.
///
/// What is selected is remembered for the process. A page begins with what is still enabled of it; else with the lowest active zone, or
/// the lowest enabled one, and the lowest enabled variable.
class ZoneVarInfoPage : public QObject
{
    Q_OBJECT

public:
    /// @param ui set up already; its widgets outlive the page
    /// @param dialog that the form is in
    ZoneVarInfoPage(Ui::DataSetInfo& ui, QWidget& dialog);
    ~ZoneVarInfoPage() override;

private:
    struct Impl;
    std::unique_ptr<Impl> const m_impl;
};

} // namespace veldraw::dialogs::data
