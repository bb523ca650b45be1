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
    using Names = std::vector<std::string>;
    /// Rows of cells; rows without cells don't count.
    using Texts = std::vector<Names>;

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
        connect(&m_model, &QAbstractItemModel::headerDataChanged, this, &ShadowView::readNames);
    }

    Texts const& texts() const { return m_texts; }
    Names const& rowNames() const { return m_rowNames; }
    Names const& columnNames() const { return m_columnNames; }

private:
    void readAll()
    {
        auto const rows = static_cast<std::size_t>(m_model.rowCount());
        auto const columns = static_cast<std::size_t>(m_model.columnCount());
        m_rowNames.assign(rows, std::string());
        m_columnNames.assign(columns, std::string());
        m_texts.assign(columns == 0 ? 0u : rows, Names(columns));
        readNames(Qt::Vertical, 0, m_model.rowCount() - 1);
        readNames(Qt::Horizontal, 0, m_model.columnCount() - 1);
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
    void readNames(Qt::Orientation orientation, int first, int last)
    {
        Names& names = orientation == Qt::Vertical ? m_rowNames : m_columnNames;
        for (int section = first; section <= last; ++section)
            names[static_cast<std::size_t>(section)] =
                m_model.headerData(section, orientation).toString().toStdString();
    }

    QAbstractItemModel& m_model;
    Names m_rowNames;
    Names m_columnNames;
    Texts m_texts;
};

} // namespace veldraw::tests
