#include "dialogs/models/TableModelProxy.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

TableModelProxy::TableModelProxy(boost::shared_ptr<TableModelInterface> const& model)
    : m_model(model)
{
    m_model->addListener(this);
}

TableModelProxy::~TableModelProxy()
{
    m_model->removeListener(this);
}

void TableModelProxy::setModel(boost::shared_ptr<TableModelInterface> const& model)
{
    // The argument may be the proxy's own pointer.
    boost::shared_ptr<TableModelInterface> newModel = model;
    newModel->addListener(this);
    if (newModel != m_model)
        m_model->removeListener(this);
    m_model.swap(newModel);
    newModel.reset();
    notifyOfDataChanged();
}

unsigned long long TableModelProxy::columnCount() const
{
    return m_model->columnCount();
}

unsigned long long TableModelProxy::rowCount() const
{
    return m_model->rowCount();
}

std::string TableModelProxy::columnName(unsigned long long column) const
{
    return m_model->columnName(column);
}

std::string TableModelProxy::rowName(unsigned long long row) const
{
    return m_model->rowName(row);
}

bool TableModelProxy::isEditable(ModelIndex const& index) const
{
    return m_model->isEditable(index);
}

std::string TableModelProxy::getStr(ModelIndex const& index) const
{
    return m_model->getStr(index);
}

bool TableModelProxy::setStr(ModelIndex const& index, std::string const& text)
{
    // Somebody who hears of the edit may replace the table while it is still at work.
    boost::shared_ptr<TableModelInterface> const model = m_model;
    return model->setStr(index, text);
}

void TableModelProxy::dataChanged(TableModelInterface&)
{
    notifyOfDataChanged();
}

void TableModelProxy::itemChanged(ModelIndex const& index, TableModelInterface&)
{
    notifyOfItemChanged(index);
}

void TableModelProxy::rowsInserted(unsigned long long first, unsigned long long last, TableModelInterface&)
{
    listeners().tell(
        [this, first, last](TableModelListenerInterface& listener) { listener.rowsInserted(first, last, *this); });
}

void TableModelProxy::rowsRemoved(unsigned long long first, unsigned long long last, TableModelInterface&)
{
    listeners().tell(
        [this, first, last](TableModelListenerInterface& listener) { listener.rowsRemoved(first, last, *this); });
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
