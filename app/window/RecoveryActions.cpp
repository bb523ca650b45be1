#include "app/window/RecoveryActions.h"

#include "app/window/DocumentController.h"
#include "app/window/LegibleNames.h"
#include "host/MessagePresenter.h"

#include <QDateTime>
#include <QDir>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>

#include <stdexcept>

namespace veldraw::app {

namespace {

QString stepsText(int count)
{
    return count == 1 ? QStringLiteral("1 step") : QStringLiteral("%1 steps").arg(count);
}

QString timeText(std::int64_t seconds)
{
    return QLocale().toString(QDateTime::fromSecsSinceEpoch(seconds), QStringLiteral("d MMMM yyyy, HH:mm"));
}

QString offerText(LeftWork const& work)
{
    QString const files = linesOf(work.files());
    int const count = countUnsaved(work.content().steps);
    QString text = QStringLiteral("Veldraw ended before all work was saved.\n\n");
    if (!files.isEmpty())
        text += files + QLatin1Char('\n');
    text += count == 0 ? QStringLiteral("The last step was on %1.").arg(timeText(work.time()))
                       : QStringLiteral("%1, the last one on %2.").arg(stepsText(count), timeText(work.time()));
    if (work.content().isDamaged)
        text += count == 0 ? QStringLiteral(" What was done cannot be read.")
                           : QStringLiteral(" What was done after them cannot be read.");
    return text + QStringLiteral("\n\nRepeat what was done?");
}

} // namespace

QString RecoveryActions::standardFolder()
{
    QString const chosen = QFile::decodeName(qgetenv("VELDRAW_RECOVERY_FOLDER"));
    return chosen.isEmpty()
               ? QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/recovery")
               : QDir(chosen).absolutePath();
}

RecoveryActions::RecoveryActions(kernel::Session& session, DocumentController& documents, QWidget& window,
                                 QString const& folder)
    : m_session(session)
    , m_documents(documents)
    , m_window(window)
    , m_folder(QFile::encodeName(folder).toStdString())
    , m_keeper(session, m_folder)
{
    m_keeper.setListener([this] { discardRecovered(); });
}

bool RecoveryActions::offer()
{
    for (std::unique_ptr<LeftWork>& work : LeftWork::findAll(m_folder)) {
        Answer const answer = ask(*work);
        if (answer == Answer::Recover)
            return recover(std::move(work));
        if (answer == Answer::Discard)
            work->discard();
    }
    return false;
}

RecoveryActions::Answer RecoveryActions::ask(LeftWork const& work)
{
    QMessageBox box(QMessageBox::Question, QStringLiteral("Recover Work"), offerText(work), QMessageBox::NoButton,
                    &m_window);
    box.setObjectName(QStringLiteral("recoveryQuestion"));
    box.setTextFormat(Qt::PlainText); // names are no markup
    QPushButton* const recovers = box.addButton(QStringLiteral("&Recover"), QMessageBox::AcceptRole);
    QPushButton* const discards = box.addButton(QStringLiteral("&Discard"), QMessageBox::DestructiveRole);
    QPushButton* const waits = box.addButton(QStringLiteral("&Later"), QMessageBox::RejectRole);
    recovers->setObjectName(QStringLiteral("recoverButton"));
    discards->setObjectName(QStringLiteral("discardButton"));
    waits->setObjectName(QStringLiteral("laterButton"));
    box.setDefaultButton(recovers);
    box.setEscapeButton(waits);
    box.exec();
    if (box.clickedButton() == recovers)
        return Answer::Recover;
    return box.clickedButton() == discards ? Answer::Discard : Answer::Later;
}

// The file of the earlier run goes when the one of this run has all of it.
bool RecoveryActions::recover(std::unique_ptr<LeftWork> work)
{
    RecoveryContent const& content = work->content();
    ReplayOutcome outcome;
    {
        RecoveryKeeper::Pause const pause(m_keeper);
        outcome = replay(content.steps, m_session, *this);
    }
    int const unsaved = countUnsaved(content.steps);
    bool const isWhole = outcome.isWhole() && !content.isDamaged;
    bool const isKept = m_keeper.finish();
    if (isWhole && isKept)
        work->discard();
    else if (outcome.done > 0)
        m_recovered = std::move(work);
    if (isWhole)
        Q_EMIT told(QStringLiteral("Recovered %1").arg(stepsText(unsaved)));
    else
        tellRest(outcome);
    return isWhole || outcome.done > 0;
}

void RecoveryActions::tellRest(ReplayOutcome const& outcome)
{
    QString text =
        outcome.done == 0
            ? QStringLiteral("Nothing could be recovered.")
            : QStringLiteral("%1 of %2 could be recovered.").arg(outcome.done).arg(stepsText(outcome.wanted));
    if (outcome.isWhole() && outcome.done == 0)
        text += QStringLiteral(" The recovery file is damaged.");
    else if (outcome.isWhole())
        text += QStringLiteral(" What was done after that cannot be read: the recovery file is damaged.");
    else
        text += QStringLiteral(" This step could not be repeated: %1").arg(QString::fromStdString(outcome.command));
    host::MessagePresenter::Details const details(outcome.reason);
    host::MessagePresenter::present(text.toStdString(), MessageBoxType_Warning);
}

// What was recovered is saved, or something else was opened in its place.
void RecoveryActions::discardRecovered()
{
    if (m_recovered)
        m_recovered->discard();
    m_recovered.reset();
}

void RecoveryActions::end()
{
    if (!m_session.history().isClean())
        discardRecovered();
    m_keeper.forget();
    m_keeper.finish();
}

void RecoveryActions::open(QStringList const& paths, bool inNewFrames)
{
    using Place = DocumentController::Place;
    if (!m_documents.open(paths, inNewFrames ? Place::NewFrames : Place::FreshPage))
        throw std::runtime_error("Nothing was opened.");
}

// Nothing is saved again.
void RecoveryActions::save(QString const&, bool) {}

void RecoveryActions::savePicture(QString const&, PictureOptions const&) {}

} // namespace veldraw::app
