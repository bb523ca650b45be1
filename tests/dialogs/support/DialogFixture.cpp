#include "tests/dialogs/support/DialogFixture.h"

#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/ConstantLoader.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QItemSelectionModel>
#include <QLineEdit>
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
    if (traits.zonesAreLines)
        makeLines();
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

void DialogFixture::makeLines()
{
    for (auto const& zone : sample.dataSet().zones()) {
        zone->i *= zone->j;
        zone->j = 1;
    }
}

dialogs::common::QtDialogAbstract& DialogFixture::launched()
{
    dialog().launch();
    EXPECT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == &dialog(); }));
    IdleDispatcher::flush();
    return dialog();
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

void DialogFixture::clickRow(int row, Qt::KeyboardModifiers modifiers)
{
    if (qobject_cast<QComboBox*>(&chooser()))
        choose(traits.list, row);
    else
        clickRowOf(view(), row, modifiers);
}

void DialogFixture::clickRowOf(QAbstractItemView& view, int row, Qt::KeyboardModifiers modifiers)
{
    QRect const place = view.visualRect(view.model()->index(row, 0));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, place.center());
}

void DialogFixture::clickRowOf(std::string const& list, int row)
{
    clickRowOf(child<QListView>(list), row);
}

void DialogFixture::choose(std::string const& comboBox, int row)
{
    auto& box = child<QComboBox>(comboBox);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Home);
    for (int step = 0; step < row; ++step)
        QTest::keyClick(&box, Qt::Key_Down);
    IdleDispatcher::flush();
}

void DialogFixture::clickMark(std::string const& button)
{
    auto& mark = child<QAbstractButton>(button);
    QTest::mouseClick(&mark, Qt::LeftButton, Qt::NoModifier, QPoint(8, mark.height() / 2));
    IdleDispatcher::flush();
}

void DialogFixture::enter(std::string const& field, std::string const& text)
{
    auto& edit = child<QLineEdit>(field);
    edit.setFocus();
    edit.selectAll();
    QTest::keyClicks(&edit, QString::fromStdString(text));
    QTest::keyClick(&edit, Qt::Key_Tab);
    IdleDispatcher::flush();
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

std::vector<std::string> DialogFixture::rows()
{
    auto const* const box = qobject_cast<QComboBox*>(&chooser());
    if (!box)
        return rowsOf(view());
    std::vector<std::string> texts = choicesOf(traits.list);
    if (box->currentIndex() >= 0)
        texts.at(static_cast<std::size_t>(box->currentIndex())).insert(0, "*");
    return texts;
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

std::vector<std::string> DialogFixture::rowsOf(std::string const& list)
{
    return rowsOf(child<QListView>(list));
}

std::vector<std::string> DialogFixture::choicesOf(std::string const& comboBox)
{
    IdleDispatcher::flush();
    auto const& box = child<QComboBox>(comboBox);
    std::vector<std::string> texts;
    for (int row = 0; row < box.count(); ++row)
        texts.push_back(box.itemText(row).toStdString());
    return texts;
}

std::string DialogFixture::chosen(std::string const& comboBox)
{
    IdleDispatcher::flush();
    return child<QComboBox>(comboBox).currentText().toStdString();
}

std::string DialogFixture::shown(std::string const& field)
{
    IdleDispatcher::flush();
    return child<QLineEdit>(field).text().toStdString();
}

bool DialogFixture::isChecked(std::string const& button)
{
    IdleDispatcher::flush();
    return child<QAbstractButton>(button).isChecked();
}

bool DialogFixture::isEnabled(std::string const& name)
{
    IdleDispatcher::flush();
    return child<QWidget>(name).isEnabled();
}

bool DialogFixture::canAct()
{
    IdleDispatcher::flush();
    return actionButton().isEnabled();
}

void DialogFixture::showAs(PlotType_e plotType)
{
    sample.session().perform(kernel::SetPlotType(sample.frame()->id, plotType));
    IdleDispatcher::flush();
}

void DialogFixture::setValues(int zone, int variable, std::vector<double> const& values)
{
    auto buffer = kernel::Buffer::allocate(FieldDataType_Double, static_cast<std::int64_t>(values.size()));
    for (std::size_t at = 0; at < values.size(); ++at)
        buffer->setValue(static_cast<std::int64_t>(at), values[at]);
    sample.dataSet().zone(zone)->fields.at(static_cast<std::size_t>(variable - 1)) =
        kernel::Field(std::make_shared<kernel::ShareGroup>(std::move(buffer)), ValueLocation_Nodal);
}

std::vector<double> DialogFixture::values(int zone, int variable) const
{
    std::vector<double> values;
    auto const buffer = sample.dataSet().field(zone, variable)->group()->buffer();
    for (std::int64_t at = 0; at < buffer->size(); ++at)
        values.push_back(buffer->value(at));
    return values;
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
