#include "app/window/ViewMenu.h"

#include "app/plot/PageView.h"
#include "app/window/NewAction.h"

namespace veldraw::app {

ViewMenu::ViewMenu(CentralView const& view, QWidget* parent)
    : QMenu(QStringLiteral("&Look From"), parent)
    , m_view(view)
{
    setObjectName(QStringLiteral("lookFromMenu"));
    addSides();
    addSeparator();
    addViews();
}

QAction& ViewMenu::add(char const* name, QString const& text, QKeySequence const& key,
                       std::function<void()> const& work)
{
    QAction* const action = newAction(*this, name, {}, text, work);
    action->setShortcut(key);
    addAction(action);
    return *action;
}

void ViewMenu::addSides()
{
    auto const addSide = [this](char const* name, char const* text, ViewSide side, int key) {
        m_sides.push_back(&add(name, QString::fromLatin1(text), key, [this, side] { m_view.lookFrom(side); }));
    };
    int const front = Qt::CTRL + Qt::ALT;
    int const back = front + Qt::SHIFT;
    addSide("lookFromPlusXAction", "From +&X", ViewSide::PlusX, front + Qt::Key_X);
    addSide("lookFromMinusXAction", "From -X", ViewSide::MinusX, back + Qt::Key_X);
    addSide("lookFromPlusYAction", "From +&Y", ViewSide::PlusY, front + Qt::Key_Y);
    addSide("lookFromMinusYAction", "From -Y", ViewSide::MinusY, back + Qt::Key_Y);
    addSide("lookFromPlusZAction", "From +&Z", ViewSide::PlusZ, front + Qt::Key_Z);
    addSide("lookFromMinusZAction", "From -Z", ViewSide::MinusZ, back + Qt::Key_Z);
    addSeparator();
    addSide("lookIsometricAction", "&Isometric", ViewSide::Isometric, front + Qt::Key_I);
}

void ViewMenu::addViews()
{
    m_views.push_back(&add("previousViewAction", QStringLiteral("&Previous View"), Qt::ALT + Qt::Key_Left, [this] {
        tellUnless(m_view.goToView(ViewStep::Back), QStringLiteral("There is no earlier view of this plot"));
    }));
    m_views.push_back(&add("nextViewAction", QStringLiteral("&Next View"), Qt::ALT + Qt::Key_Right, [this] {
        tellUnless(m_view.goToView(ViewStep::On), QStringLiteral("There is no later view of this plot"));
    }));
    addSeparator();
    m_views.push_back(&add("copyViewAction", QStringLiteral("&Copy View"), Qt::CTRL + Qt::ALT + Qt::Key_C, [this] {
        Q_EMIT told(m_view.copyView() ? QStringLiteral("Copied the view") : QStringLiteral("There is no view to copy"));
    }));
    m_views.push_back(&add("pasteViewAction", QStringLiteral("P&aste View"), Qt::CTRL + Qt::ALT + Qt::Key_V, [this] {
        tellUnless(m_view.pasteView(), QStringLiteral("No view of a plot of this kind was copied"));
    }));
    QAction& link = add("linkViewsAction", QStringLiteral("&Link Views"), {}, [] {});
    link.setCheckable(true);
    link.setToolTip(QStringLiteral("Has all plots of a kind follow the one that is moved"));
    connect(&link, &QAction::toggled, this, [this](bool isOn) { m_view.linkViews(isOn); });
    addSeparator();
    m_views.push_back(&add("rememberViewAction", QStringLiteral("&Remember View"), {}, [this] { remember(); }));
}

// The remembered ones stand at the end, in their order.
void ViewMenu::remember()
{
    int const number = m_view.rememberView();
    if (number == 0)
        return Q_EMIT told(QStringLiteral("No more views can be remembered"));
    QString const name = QStringLiteral("recallView%1Action").arg(number);
    m_views.push_back(&add(name.toLatin1().constData(), QStringLiteral("View &%1").arg(number),
                           Qt::CTRL + Qt::ALT + Qt::Key_0 + number, [this, number] {
                               tellUnless(m_view.recallView(number),
                                          QStringLiteral("View %1 is one of another kind of plot").arg(number));
                           }));
    Q_EMIT told(QStringLiteral("Ctrl+Alt+%1 goes back to this view").arg(number));
}

void ViewMenu::tellUnless(bool isDone, QString const& text)
{
    if (!isDone)
        Q_EMIT told(text);
}

void ViewMenu::enable(bool isField, bool isInSpace)
{
    setEnabled(isField);
    for (QAction* const side : m_sides)
        side->setEnabled(isInSpace);
    for (QAction* const view : m_views)
        view->setEnabled(isField);
}

} // namespace veldraw::app
