#include "dialogs/bindings/ComboBoxPropertyBinding.h"

#include "dialogs/bindings/WheelGuard.h"
#include "dialogs/bindings/WidgetUpdateDeferrerOnBusy.h"
#include "dialogs/bindings/WidgetVote.h"
#include "dialogs/models/ReadingAsTold.h"

#include <QComboBox>
#include <QListView>

#include <locale>
#include <sstream>
#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// How many texts Qt may measure to find the width of a box without a delay that a user notices.
constexpr int mostMeasuredTexts = 2000;
/// The width, in letters, of a box with more texts than that.
constexpr int lettersOfUnmeasuredBox = 20;

template <typename T>
ComboBoxPropertyBinding<T>::QComboBoxListener::QComboBoxListener(ComboBoxPropertyBinding& binding)
    : m_binding(binding)
{
}

template <typename T>
void ComboBoxPropertyBinding<T>::QComboBoxListener::currentIndexChanged(int index)
{
    m_binding.currentIndexChanged(index);
}

template <typename T>
ComboBoxPropertyBinding<T>::ComboboxModelListener::ComboboxModelListener(std::function<void()> const& modelReset)
    : m_modelReset(modelReset)
{
}

template <typename T>
void ComboBoxPropertyBinding<T>::ComboboxModelListener::modelReset() const
{
    m_modelReset();
}

template <typename T>
ComboBoxPropertyBinding<T>::ComboBoxPropertyBinding(QComboBox* comboBox, boost::shared_ptr<ListModel const> model,
                                                    boost::shared_ptr<PropertyAbstract<T>> property,
                                                    BindingInterface::ModelUpdateMode mode)
    : LineEditPropertyBindingAbstract<T>(comboBox->lineEdit(), std::move(property))
    , m_comboBox(comboBox)
    , m_model(std::move(model))
    , m_comboModel(m_model.get())
    , m_listener(*this)
    , m_resetListener([this] { modelResetEnds(); })
{
    if (mode == BindingInterface::ModelUpdateDeferredOnBusy)
        new WidgetUpdateDeferrerOnBusy(*comboBox);
    new WheelGuard(*comboBox);
    comboBox->setInsertPolicy(QComboBox::NoInsert);
    listenToListAndProperty();
    m_valueWasInModel = indexOf(this->property().value()) != -1;
    setUpComboBox();
    updateWidgetValue();
}

// The combo box falls back to an empty list by itself. It must not look like a choice, and nothing may ask for an item
// of a list that is gone.
template <typename T>
ComboBoxPropertyBinding<T>::~ComboBoxPropertyBinding()
{
    m_connections.clear();
    QObject::disconnect(m_modelResetConnection);
    m_observable->removeListener(&m_listener);
    if (showsOurList()) {
        m_comboBox->hidePopup();
        // While the list lives: Qt complains about selections in one that is gone.
        m_comboBox->view()->setModel(nullptr);
    }
    m_itemModel.reset();
}

// Before there is an item model: listeners run in the order of their connection, and the start of a reset has to be
// known before Qt resets.
template <typename T>
void ComboBoxPropertyBinding<T>::listenToListAndProperty()
{
    m_connections.add(m_comboModel->connectDataChanged([this] { this->updateValueOnIdle(); }));
    m_connections.add(m_comboModel->connectItemChanged([this](int) { this->updateValueOnIdle(); }));
    m_connections.add(m_comboModel->connectItemsInserted([this](int, int) { this->updateValueOnIdle(); }));
    m_connections.add(m_comboModel->connectItemsRemoved([this] { this->updateValueOnIdle(); }));
    m_connections.add(m_comboModel->connectDataChanged([this] { modelResetStarts(); }));
    m_connections.add(this->property().connectValueChanged([this](T const& value) { valueChanged(value); }));
}

// The box gets the list before it is observed: that it starts on some row is not a choice.
template <typename T>
void ComboBoxPropertyBinding<T>::setUpComboBox()
{
    m_itemModel = std::make_unique<models::QListModel>(*m_comboModel);
    m_comboBox->setModel(m_itemModel.get());
    if (auto* const list = qobject_cast<QListView*>(m_comboBox->view()))
        list->setUniformItemSizes(true);
    limitMeasuring();
    m_observable = std::make_unique<QComboBoxObservable>(m_comboBox);
    m_observable->addListener(&m_listener);
}

template <typename T>
void ComboBoxPropertyBinding<T>::limitMeasuring()
{
    if (m_itemModel->rowCount() <= mostMeasuredTexts ||
        m_comboBox->sizeAdjustPolicy() != QComboBox::AdjustToContentsOnFirstShow)
        return;
    m_comboBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    if (m_comboBox->minimumContentsLength() == 0)
        m_comboBox->setMinimumContentsLength(lettersOfUnmeasuredBox);
}

template <typename T>
void ComboBoxPropertyBinding<T>::updateWidgetValue()
{
    if (!showsOurList())
        return;
    T const value = this->property().value();
    int const index = indexOf(value);
    if (index != -1) {
        m_comboBox->setCurrentIndex(index);
    } else if (m_comboBox->isEditable()) {
        std::ostringstream text;
        text.imbue(std::locale::classic()); // as it is read
        text << value;
        m_comboBox->setEditText(QString::fromStdString(text.str()));
    } else if (m_itemModel->rowCount() > 0) {
        m_comboBox->setCurrentIndex(0);
    }
}

template <typename T>
void ComboBoxPropertyBinding<T>::updateWidgetVisibility()
{
    WidgetVote::castFor(&this->uiProperty(), m_comboBox, WidgetVote::Visible, this->uiProperty().isVisible());
}

template <typename T>
void ComboBoxPropertyBinding<T>::updateWidgetSensitivity()
{
    WidgetVote::castFor(&this->uiProperty(), m_comboBox, WidgetVote::Enabled, this->uiProperty().isSensitive());
}

template <typename T>
void ComboBoxPropertyBinding<T>::currentIndexChanged(int index)
{
    // Qt stands on a heading where there is nothing else; nobody can have chosen it.
    if (index == -1 || m_modelResetInProgress || !showsOurList() || m_comboModel->isHeader(index))
        return;
    QPointer<QObject> const self = m_observable.get();
    try {
        this->setPropertyValue(m_comboModel->get(index));
    } catch (...) {
        // A refused choice does not change the property, so no signal would bring the box back.
        if (self)
            this->updateValueOnIdle();
        throw;
    }
}

template <typename T>
void ComboBoxPropertyBinding<T>::valueChanged(T const& value)
{
    m_valueWasInModel = indexOf(value) != -1;
}

// As the list has told it last, which is how the box has its rows.
template <typename T>
int ComboBoxPropertyBinding<T>::indexOf(T const& value) const
{
    models::ReadingAsTold const asTold;
    return m_comboModel->indexOf(value);
}

// Connected anew for each reset, so that it comes after the combo box's own handling, which moves the box.
template <typename T>
void ComboBoxPropertyBinding<T>::modelResetStarts()
{
    QObject::disconnect(m_modelResetConnection);
    if (!showsOurList())
        return;
    m_modelResetInProgress = true;
    m_modelResetConnection = QObject::connect(m_comboBox->model(), &QAbstractItemModel::modelReset, &m_resetListener,
                                              [this] { m_resetListener.modelReset(); });
}

template <typename T>
void ComboBoxPropertyBinding<T>::modelResetEnds()
{
    QObject::disconnect(m_modelResetConnection);
    m_modelResetInProgress = false;
    if (!m_valueWasInModel || indexOf(this->property().value()) != -1)
        return;
    for (int row = 0; row < m_itemModel->rowCount(); ++row) {
        if (!m_comboModel->isHeader(row)) {
            this->setPropertyValue(m_comboModel->get(row));
            return;
        }
    }
}

template <typename T>
bool ComboBoxPropertyBinding<T>::showsOurList() const
{
    return m_comboBox && m_itemModel && m_comboBox->model() == m_itemModel.get();
}

template class ComboBoxPropertyBinding<int>;
#define VELDRAW_INSTANTIATE(T) template class ComboBoxPropertyBinding<T>;
VELDRAW_FOR_EACH_CHOICE_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings
