#pragma once

#include <QAbstractItemModel>
#include <QObject>

#include <string>
#include <vector>

namespace veldraw::tests {

/// Shows a table as a view does: it reads again only what it is told has changed.
class ShadowView : public QObject
{
public:
    /// Rows of cells; rows without cells don't count.
    using Texts = std::vector<std::vector<std::string>>;

    explicit ShadowView(QAbstractItemModel& model)
        : m_model(model)
    {
        readAll();
        connect(&m_model, &QAbstractItemModel::modelReset, this, &ShadowView::readAll);
        connect(&m_model, &QAbstractItemModel::rowsInserted, this, &ShadowView::readAll);
        connect(&m_model, &QAbstractItemModel::rowsRemoved, this, &ShadowView::readAll);
        connect(&m_model, &QAbstractItemModel::columnsInserted, this, &ShadowView::readAll);
        connect(&m_model, &QAbstractItemModel::columnsRemoved, this, &ShadowView::readAll);
        connect(&m_model, &QAbstractItemModel::dataChanged, this, &ShadowView::read);
    }

    Texts const& texts() const { return m_texts; }

private:
    void readAll()
    {
        m_texts.assign(m_model.columnCount() == 0 ? 0u : static_cast<std::size_t>(m_model.rowCount()),
                       std::vector<std::string>(static_cast<std::size_t>(m_model.columnCount())));
        if (!m_texts.empty())
            read(m_model.index(0, 0), m_model.index(m_model.rowCount() - 1, m_model.columnCount() - 1));
    }
    void read(QModelIndex const& first, QModelIndex const& last)
    {
        for (int row = first.row(); row <= last.row(); ++row) {
            for (int column = first.column(); column <= last.column(); ++column)
                m_texts[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] =
                    m_model.index(row, column).data().toString().toStdString();
        }
    }

    QAbstractItemModel& m_model;
    Texts m_texts;
};

} // namespace veldraw::tests
