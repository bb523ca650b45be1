#pragma once

#include "dialogs/models/QTableModelAdapter.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// Shows auxiliary data to a Qt item view. Assistive technology reads the names of rows although they are hidden on the screen, and gets
/// those of the items. A tool tip has the whole of a text, which may have many lines.
class AuxDataTableAdapter : public QTableModelAdapter
{
    Q_OBJECT

public:
    using QTableModelAdapter::QTableModelAdapter;
    ~AuxDataTableAdapter() override;

    QVariant data(QModelIndex const& modelIndex, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
