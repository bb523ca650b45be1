#pragma once

#include "dialogs/bindings/LineEditPropertyBindingAbstract.h"

#include <string>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Ties a line edit to a number or a text:
///
///     TextFieldPropertyBinding<double> range(form.rangeLineEdit, manager.krigRange());
///
/// The field shows the value at once, and from then on follows it at idle; see `LineEditPropertyBindingAbstract` for the
/// other direction. Numbers are written and read in the same way in every locale.
template <typename T>
class TextFieldPropertyBinding : public LineEditPropertyBindingAbstract<T>
{
public:
    /// Keeps the property alive.
    TextFieldPropertyBinding(QLineEdit* lineEdit, boost::shared_ptr<PropertyAbstract<T>> property);
    /// The field follows the property's visibility and sensitivity too. The caller keeps the property alive.
    TextFieldPropertyBinding(QLineEdit* lineEdit, UIStylePropertyAbstract<T>& uiProperty);
    ~TextFieldPropertyBinding() override;

    void updateWidgetValue() override;
    void updateWidgetVisibility() override;
    void updateWidgetSensitivity() override;

    /// How the value is written, as a `boost::format`; "%1%" if nothing is said. The field is written again.
    /// Throws `boost::io::format_error`, and leaves all as it was, when the value doesn't fit it.
    void setFormatString(std::string const& formatString);

    /// 0 keeps the start of a long text in view; 1, the default, its end, where the cursor is. The field is written again.
    void setDisplayMode(int displayMode);

private:
    QPointer<QLineEdit> const m_lineEdit;
    std::string m_formatString = "%1%";
    int m_displayMode = 1;
};

#define VELDRAW_DECLARE(T) extern template class TextFieldPropertyBinding<T>;
VELDRAW_FOR_EACH_TEXT_FIELD_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::ui::dialogs::propertybindings
