#pragma once

#include "dialogs/bindings/BindingInterface.h"
#include "dialogs/property/PropertyAbstract.h"
#include "platform/signals/SignalConnectionCollection.h"
#include "tests/manual/GalleryRow.h"
#include "tests/manual/GalleryValueText.h"

#include <QGridLayout>
#include <QGroupBox>

#include <boost/shared_ptr.hpp>

#include <memory>
#include <utility>
#include <vector>

namespace veldraw::tests {

/// A titled group of rows: a caption, a control, and the value of the property that the control is bound to. The value is
/// written inside the property's own signal, so it shows what the property holds and not what the control shows.
class GallerySection : public QGroupBox
{
public:
    explicit GallerySection(QString const& title);
    ~GallerySection() override;

    std::vector<GalleryRow> const& rows() const { return m_rows; }

protected:
    /// Makes a binding that lives as long as the section, and ends before its widgets.
    template <typename Binding, typename... Arguments>
    void bind(Arguments&&... arguments)
    {
        m_bindings.push_back(std::make_unique<Binding>(std::forward<Arguments>(arguments)...));
    }

    /// @param name the control's object name; the value's is the same with "Value" behind it
    /// @param hint which binding it is
    template <typename Control, typename T>
    Control* addRow(QString const& caption, char const* name, char const* hint, Control* control,
                    boost::shared_ptr<PropertyAbstract<T>> const& property)
    {
        QLabel* const value = place(caption, name, hint, control);
        show(value, valueText(property->value()));
        m_connections.add(
            property->connectValueChanged([value](T const& now) { GallerySection::show(value, valueText(now)); }));
        m_rows.push_back({control, value, [property, start = property->value()] { property->setValue(start); }});
        return control;
    }

    /// A line over the whole width, without a value.
    void addWide(QWidget* widget);

private:
    QLabel* place(QString const& caption, char const* name, char const* hint, QWidget* control);
    static void show(QLabel* label, QString const& text);

    QGridLayout* const m_grid;
    std::vector<GalleryRow> m_rows;
    SignalConnectionCollection m_connections;
    std::vector<std::unique_ptr<sdk::ui::dialogs::propertybindings::BindingInterface>> m_bindings;
};

} // namespace veldraw::tests
