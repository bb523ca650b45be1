#pragma once

#include "dialogs/models/GenericModelWrapper.h"
#include "dialogs/models/ListModelInterface.h"
#include "dialogs/property/DialogsApi.h"
#include "platform/signals/SignalConnectionCollection.h"

#include <QAbstractListModel>

#include <memory>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// Shows a list to Qt's views and combo boxes.
///
/// | role | content |
/// |---|---|
/// | `Qt::DisplayRole` | the display text |
/// | `Qt::EditRole` | the text for an editor; setting it hands the edited text to the list |
/// | `Qt::UserRole` | the value, an `int` |
///
/// Headings are neither enabled nor selectable. The list tells a change when it has happened, Qt wants most of them
/// announced: a change of the whole becomes a reset; of inserted rows the model makes believe, during Qt's
/// announcement, that they aren't there yet.
///
/// The list must outlive this model: the binding that makes one owns both, gives it no Qt parent, and deletes it before
/// it lets go of the list.
class VDSDKDIALOGS_DATA_QT_API QListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    template <typename T>
    explicit QListModel(ListModelInterface<T> const& model, QObject* parentObject = nullptr)
        : QAbstractListModel(parentObject)
        , m_wrapper(new GenericModelWrapper<T>(&model))
    {
        connectTo(model);
    }
    ~QListModel() override;

    QModelIndex index(int row, int column = 0, QModelIndex const& parentIndex = QModelIndex()) const override;
    QModelIndex parent(QModelIndex const& child) const override;
    int rowCount(QModelIndex const& parentIndex = QModelIndex()) const override;
    /// Rows that the list doesn't have (any more) answer an empty variant.
    QVariant data(QModelIndex const& modelIndex, int role = Qt::DisplayRole) const override;
    /// @return whether the list took the text; the new text comes back by the list's own signal
    bool setData(QModelIndex const& modelIndex, QVariant const& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(QModelIndex const& modelIndex) const override;

private Q_SLOTS:
    void dataChanged();
    void itemChanged(int row);
    void itemsInserted(int first, int last);
    void itemsAboutToBeRemoved(int first, int last);
    void itemsRemoved();

private:
    /// How the removal that is under way was announced to Qt.
    enum class Removal
    {
        None,
        Rows,
        Reset
    };

    template <typename T>
    void connectTo(ListModelInterface<T> const& model)
    {
        m_connections.add(model.connectDataChanged([this] { dataChanged(); }));
        m_connections.add(model.connectItemChanged([this](int row) { itemChanged(row); }));
        m_connections.add(model.connectItemsInserted([this](int first, int last) { itemsInserted(first, last); }));
        m_connections.add(
            model.connectItemsAboutToBeRemoved([this](int first, int last) { itemsAboutToBeRemoved(first, last); }));
        m_connections.add(model.connectItemsRemoved([this] { itemsRemoved(); }));
    }

    /// As the list has told it last: Qt needs rows that do not move between two signals.
    int listSize() const;
    /// The list's row behind a row of this model, -1 if there is none.
    int listRow(QModelIndex const& modelIndex) const;
    void finishRemoval();

    std::unique_ptr<GenericModelWrapperInterface> m_wrapper;
    Removal m_removal = Removal::None;
    int m_insertionFirst = 0; // while an insertion is being announced: the rows that Qt doesn't know yet
    int m_insertionCount = 0;
    SignalConnectionCollection m_connections; // last, so that nothing arrives while the rest goes
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
