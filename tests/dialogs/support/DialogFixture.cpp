#include "tests/dialogs/support/DialogFixture.h"

#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/ConstantLoader.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QItemSelectionModel>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include <stdexcept>
#include <utility>

namespace veldraw::tests {

using sdk::ui::common::IdleDispatcher;

DialogFixture::DialogFixture(DialogTraits dialogTraits)
    : traits(std::move(dialogTraits))
    , mainWindow(std::make_unique<QWidget>())
{
    if (traits.defersVariables)
        deferVariables();
    sample.session().perform(kernel::SetPlotType(sample.frame()->id, traits.plotType));
    mainWindow->show();
}

DialogFixture::~DialogFixture() = default;

void DialogFixture::deferVariables()
{
    std::int64_t const points = 6;
    for (int zone = 1; zone <= sample.dataSet().zoneCount(); ++zone)
        for (kernel::Field& field : sample.dataSet().zone(zone)->fields) {
            auto const loader = std::make_shared<ConstantLoader>(FieldDataType_Float, points, 1.0 * zone);
            field = kernel::Field(std::make_shared<kernel::ShareGroup>(FieldDataType_Float, points, loader),
                                  ValueLocation_Nodal);
        }
}

dialogs::common::QtDialogAbstract& DialogFixture::launched()
{
    dialog().launch();
    EXPECT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == &dialog(); }));
    IdleDispatcher::flush();
    return dialog();
}

QAbstractItemView& DialogFixture::view()
{
    auto* const found = dialog().findChild<QAbstractItemView*>(QString::fromStdString(traits.list));
    if (!found)
        throw std::logic_error("there is no list " + traits.list);
    return *found;
}

QListView& DialogFixture::list()
{
    return dynamic_cast<QListView&>(view());
}

QAbstractItemModel& DialogFixture::boundModel(std::string const& objectName)
{
    QString const name = QString::fromStdString(objectName);
    if (auto const* const comboBox = dialog().findChild<QComboBox*>(name))
        return *comboBox->model();
    if (auto const* const items = dialog().findChild<QAbstractItemView*>(name))
        return *items->model();
    throw std::logic_error("there is no " + objectName);
}

std::vector<std::string> DialogFixture::boundInOrder() const
{
    return traits.boundInOrder.empty() ? std::vector<std::string>{traits.list} : traits.boundInOrder;
}

QDialogButtonBox& DialogFixture::buttonBox()
{
    return *dialog().findChild<QDialogButtonBox*>(QString::fromStdString(traits.buttonBox));
}

QPushButton& DialogFixture::actionButton()
{
    for (QAbstractButton* const button : buttonBox().buttons())
        if (button->text().toStdString() == traits.action)
            return *qobject_cast<QPushButton*>(button);
    throw std::logic_error("there is no button " + traits.action);
}

void DialogFixture::clickRowOf(QAbstractItemView& view, int row, Qt::KeyboardModifiers modifiers)
{
    QRect const place = view.visualRect(view.model()->index(row, 0));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, place.center());
}

void DialogFixture::selectForAction()
{
    clickRow(0);
    if (traits.selectMore)
        traits.selectMore(dialog());
    IdleDispatcher::flush();
}

void DialogFixture::clickAction()
{
    QTest::mouseClick(&actionButton(), Qt::LeftButton);
}

void DialogFixture::clickClose()
{
    QTest::mouseClick(buttonBox().button(QDialogButtonBox::Close), Qt::LeftButton);
}

std::vector<std::string> DialogFixture::rowsOf(QAbstractItemView const& view)
{
    IdleDispatcher::flush();
    std::vector<std::string> texts;
    for (int row = 0; row < view.model()->rowCount(); ++row) {
        QModelIndex const index = view.model()->index(row, 0);
        std::string const mark = view.selectionModel()->isSelected(index) ? "*" : "";
        texts.push_back(mark + index.data().toString().toStdString());
    }
    return texts;
}

std::vector<std::string> DialogFixture::zoneNames() const
{
    std::vector<std::string> names;
    for (auto const& zone : sample.dataSet().zones())
        names.push_back(zone->name);
    return names;
}

std::vector<std::string> DialogFixture::variableNames() const
{
    std::vector<std::string> names;
    for (auto const& variable : sample.dataSet().variables())
        names.push_back(variable->name);
    return names;
}

} // namespace veldraw::tests
