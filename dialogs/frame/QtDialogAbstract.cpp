#include "dialogs/frame/QtDialogAbstract.h"

#include "dialogs/bindings/RelevanceApplier.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"

#include <QAccessible>
#include <QAction>
#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QShowEvent>

#include <algorithm>
#include <new>
#include <utility>

namespace veldraw::dialogs::common {

using sdk::ui::dialogs::propertybindings::RelevanceApplier;

namespace {

QString withoutMnemonic(QString text)
{
    // "&&" stands for an ampersand of the text.
    return text.remove(QRegularExpression(QStringLiteral("&(?!&)")));
}

// Room on each side of the text of a button that has to be narrow, in pixels.
constexpr int leastMargin = 4;

// The width of the text, of a little room around it, and of the icon that some styles add.
int neededWidth(QAbstractButton const& button)
{
    int const text = button.fontMetrics().horizontalAdvance(withoutMnemonic(button.text()));
    int const icon = button.icon().isNull() ? 0 : button.iconSize().width() + 4;
    return text + icon + 2 * leastMargin;
}

// The widgets of a form without those of dialogs that were opened from it: these dialogs are children of the form too.
template <typename Widget>
QList<Widget*> widgetsOf(QDialog const& dialog)
{
    QList<Widget*> widgets;
    for (Widget* const widget : dialog.findChildren<Widget*>())
        if (widget->window() == &dialog)
            widgets.append(widget);
    return widgets;
}

} // namespace

QtDialogAbstract::QtDialogAbstract(QWidget& parent,
                                   boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> relevance)
    : QDialog(&parent)
    , m_relevance(std::move(relevance))
{
}

QtDialogAbstract::~QtDialogAbstract()
{
    saveState();
}

void QtDialogAbstract::launch()
{
    wireOnce();
    applyRelevance();
    if (isMinimized())
        showNormal();
    else
        show();
    raise();
    activateWindow();
}

void QtDialogAbstract::drop()
{
    saveState();
    hide();
}

void QtDialogAbstract::updateContent()
{
    sdk::ui::common::IdleDispatcher::flush();
    applyRelevance();
}

void QtDialogAbstract::done(int result)
{
    saveState();
    QDialog::done(result);
}

QSize QtDialogAbstract::sizeHint() const
{
    rememberFormSize();
    return QDialog::sizeHint().expandedTo(m_formSize);
}

void QtDialogAbstract::setHelpAction(QAction* action)
{
    action->setParent(this);
    action->setShortcut(QKeySequence::HelpContents);
    action->setShortcutContext(Qt::WindowShortcut);
    addAction(action);
    for (QDialogButtonBox* const box : buttonBoxes())
        connect(box->addButton(QDialogButtonBox::Help), &QPushButton::clicked, action, &QAction::trigger);
}

void QtDialogAbstract::showEvent(QShowEvent* event)
{
    wireOnce();
    setAttribute(Qt::WA_KeyboardFocusChange); // without it the style shows no focus before the first Tab
    if (!std::exchange(m_wasShown, true) && !focusWidget())
        focusFirstWidget();
    restoreState();
    QDialog::showEvent(event);
}

void QtDialogAbstract::closeEvent(QCloseEvent* event)
{
    saveState();
    QDialog::closeEvent(event);
}

void QtDialogAbstract::addPersistentState(boost::shared_ptr<veldraw::common::SerializerInterface> const& state)
{
    m_states.push_back(state);
}

// Runs at the first opening, when the form and all buttons that were added to it are there.
void QtDialogAbstract::wireOnce()
{
    if (m_isWired)
        return;
    rememberFormSize();
    m_isWired = true;
    wireCloseButtons();
    takeDefaultsOffButtons();
    letButtonsBeNarrow();
    nameInputsAfterTheirLabels();
    if (m_relevance)
        m_relevanceApplier = std::make_unique<RelevanceApplier>(
            m_relevance, relevanceTargets(), RelevanceApplier::EnableDisable, RelevanceApplier::UpdateOnIdle);
    settleLayouts();
    if (!testAttribute(Qt::WA_Resized))
        resize(sizeHint().boundedTo(screen()->availableSize() * 9 / 10));
}

// A layout in a layout follows its texts only when that of its widget is activated, which Qt does when the widget is shown: too late for
// the size of the dialog.
void QtDialogAbstract::settleLayouts()
{
    QList<QWidget*> const widgets = findChildren<QWidget*>(); // each before those in it
    std::for_each(widgets.rbegin(), widgets.rend(), [](QWidget* widget) {
        if (widget->layout())
            widget->layout()->activate();
        widget->updateGeometry();
    });
}

void QtDialogAbstract::wireCloseButtons()
{
    // Connections by name can be unique: a form that makes the same connection itself does not close the dialog twice.
    for (QDialogButtonBox* const box : buttonBoxes()) {
        connect(box, SIGNAL(rejected()), this, SLOT(reject()), Qt::UniqueConnection);
        // Close must not take the focus by a click: the field that loses the focus would take its unfinished text, which closing drops.
        if (QPushButton* const close = box->button(QDialogButtonBox::Close))
            close->setFocusPolicy(Qt::TabFocus);
    }
}

void QtDialogAbstract::takeDefaultsOffButtons()
{
    for (QPushButton* const button : widgetsOf<QPushButton>(*this)) {
        button->setAutoDefault(false);
        button->setDefault(false);
    }
}

// Styles make buttons wider than their texts need. Without this a narrow form would have no room for the Help button, for which it
// was not designed.
void QtDialogAbstract::letButtonsBeNarrow()
{
    for (QDialogButtonBox* const box : buttonBoxes())
        for (QAbstractButton* const button : box->buttons())
            button->setMinimumWidth(neededWidth(*button));
}

void QtDialogAbstract::nameInputsAfterTheirLabels()
{
    for (QLabel const* const label : widgetsOf<QLabel>(*this)) {
        QAccessibleInterface const* const input = QAccessible::queryAccessibleInterface(label->buddy());
        if (input && input->text(QAccessible::Name).isEmpty())
            label->buddy()->setAccessibleName(withoutMnemonic(label->text()));
    }
}

void QtDialogAbstract::applyRelevance()
{
    if (m_relevanceApplier)
        m_relevanceApplier->apply();
}

void QtDialogAbstract::focusFirstWidget()
{
    for (QWidget* widget = nextInFocusChain(); widget != this; widget = widget->nextInFocusChain()) {
        bool const takesTab = (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        if (takesTab && !widget->focusProxy() && widget->isEnabled() && widget->isVisibleTo(this)) {
            widget->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}

void QtDialogAbstract::rememberFormSize() const
{
    if (!m_isWired && testAttribute(Qt::WA_Resized))
        m_formSize = size();
}

void QtDialogAbstract::restoreState()
{
    if (std::exchange(m_holdsUnsavedState, true))
        return;
    for (auto const& state : m_states)
        state->restore();
}

void QtDialogAbstract::saveState()
{
    if (!std::exchange(m_holdsUnsavedState, false))
        return;
    for (auto const& state : m_states) {
        try {
            state->save();
        } catch (std::bad_alloc const&) {
            // The dialog is going away: what it kept before stays.
        }
    }
}

std::vector<QObject*> QtDialogAbstract::relevanceTargets() const
{
    std::vector<QObject*> targets;
    for (QWidget* const child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (!child->isWindow() && !qobject_cast<QDialogButtonBox*>(child))
            targets.push_back(child);
    for (QDialogButtonBox* const box : buttonBoxes())
        for (QAbstractButton* const button : box->buttons())
            if (box->standardButton(button) != QDialogButtonBox::Close &&
                box->standardButton(button) != QDialogButtonBox::Help)
                targets.push_back(button);
    return targets;
}

QList<QDialogButtonBox*> QtDialogAbstract::buttonBoxes() const
{
    return widgetsOf<QDialogButtonBox>(*this);
}

} // namespace veldraw::dialogs::common
