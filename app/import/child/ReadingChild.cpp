#include "app/import/child/ReadingChild.h"

#include "app/files/ImportError.h"
#include "app/handover/ByteWriter.h"
#include "app/handover/HandedDataCheck.h"
#include "app/handover/HandedForm.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <optional>
#include <utility>

namespace veldraw::app {

namespace {

constexpr int millisecondsBetweenLooks = 50; // at whether the user has cancelled
constexpr std::uint32_t mostSegments = 32768;
constexpr std::int64_t spareBytesInFiles = std::int64_t{1} << 26;
constexpr double longestLook = 1.0; // seconds: beyond that, this process has not run itself

using Clock = std::chrono::steady_clock;

std::string inGigabytes(std::int64_t bytes)
{
    char text[40];
    std::snprintf(text, sizeof text, "%.3g GB", static_cast<double>(bytes) / 1e9);
    return text;
}

// The process of this thread that waits for another file.
std::unique_ptr<ReaderProcess>& idleProcess()
{
    thread_local std::unique_ptr<ReaderProcess> process;
    return process;
}

// Asks once, and gives the same answer to whoever asks the same again.
class OneChoice
{
public:
    explicit OneChoice(ReadingChild::Choose const& choose)
        : m_choose(choose)
    {
    }

    ReadChoice operator()(FoundArrays const& found)
    {
        if (!m_choice) {
            m_found = found.asBytes();
            m_choice = m_choose(found);
        }
        if (m_found != found.asBytes())
            throw Nonsense("other arrays than before");
        return *m_choice;
    }

private:
    ReadingChild::Choose const& m_choose;
    std::string m_found;
    std::optional<ReadChoice> m_choice;
};

// How long a reader lets us wait. The time in which all processes stand still, such as on a machine that sleeps, is none of it.
class Patience
{
public:
    explicit Patience(ReaderLimits const& limits)
        : m_limits(limits)
    {
    }

    /// From now on.
    void start()
    {
        m_last = Clock::now();
        m_quiet = 0.0;
    }

    /// @param isAnswered whether it has said something since the last look @throws ImportError when patience has come to its end
    void look(bool isAnswered)
    {
        auto const now = Clock::now();
        double const since = std::min(std::chrono::duration<double>(now - m_last).count(), longestLook);
        m_last = now;
        m_quiet = isAnswered ? 0.0 : m_quiet + since;
        m_all += since;
        if (m_quiet > static_cast<double>(m_limits.quietSeconds))
            throw ImportError("it is damaged: the reader did not answer any more");
        if (m_all > static_cast<double>(m_limits.allSeconds))
            throw ImportError("it is damaged: the reader did not come to an end with it");
    }

private:
    ReaderLimits const& m_limits;
    Clock::time_point m_last;
    double m_quiet = 0.0; // seconds
    double m_all = 0.0;
};

// One request and all that is said until it is answered.
class Conversation
{
public:
    Conversation(ReaderProcess& process, ReaderLimits const& limits, OneChoice& choose, kernel::Progress& progress)
        : m_process(process)
        , m_limits(limits)
        , m_choose(choose)
        , m_progress(progress)
        , m_patience(limits)
    {
    }

    /// A process that has read before has nothing more to say. @throws as run()
    void awaitStart()
    {
        if (m_process.isNew())
            checkVersion(next());
        else if (m_process.channel().receive(0))
            throw Nonsense("an answer to no question");
    }

    ReadResult run(ReadRequest const& request)
    {
        m_process.allow(m_limits);
        say(Message::Kind::Request, request.asBytes());
        for (;;) {
            Message const message = next();
            if (message.kind == Message::Kind::Data)
                return finished(message);
            take(message);
        }
    }

private:
    Message next()
    {
        m_patience.start();
        for (;;) {
            m_progress.check();
            auto message = m_process.channel().receive(millisecondsBetweenLooks);
            m_patience.look(message.has_value());
            weigh();
            if (message)
                return std::move(*message);
        }
    }

    // Who does not listen keeps nobody from cancelling.
    void say(Message::Kind kind, std::string const& content)
    {
        m_patience.start();
        m_process.channel().send(kind, content, -1, [this] {
            m_progress.check();
            m_patience.look(false);
        });
    }

    // What it keeps in files without names counts for no limit of the system.
    void weigh()
    {
        auto const now = Clock::now();
        if (now - m_weighed < std::chrono::milliseconds(millisecondsBetweenLooks))
            return;
        m_weighed = now;
        if (m_process.bytesInFiles() > 2 * m_limits.bytes + spareBytesInFiles)
            throw ImportError(lackOfMemory());
    }

    void checkVersion(Message const& message) const
    {
        if (message.kind != Message::Kind::Ready)
            throw Nonsense("not ready");
        ByteReader from(message.content);
        bool const isOurs =
            message.content.size() == sizeof languageVersion && from.number<std::uint32_t>() == languageVersion;
        if (!isOurs)
            throw ImportError("\"" + m_process.program() +
                              "\" is of another version than this program; start this program again");
    }

    void take(Message const& message)
    {
        switch (message.kind) {
        case Message::Kind::Progress:
            takeProgress(message);
            return;
        case Message::Kind::Found:
            say(Message::Kind::Choice, m_choose(FoundArrays::fromBytes(message.content)).asBytes());
            return;
        case Message::Kind::Segment:
            takeSegment(message);
            return;
        case Message::Kind::Refused:
            refuse(Refusal::fromBytes(message.content));
        default:
            throw Nonsense("something that is not the reader's to say");
        }
    }

    void takeProgress(Message const& message)
    {
        ByteReader from(message.content);
        auto const fraction = from.number<double>();
        from.expectEnd();
        if (!(fraction >= 0.0 && fraction <= 1.0))
            throw Nonsense("a progress that is none");
        m_progress.reach(fraction);
    }

    void takeSegment(Message const& message)
    {
        ByteReader from(message.content);
        auto const number = from.number<std::uint32_t>();
        from.expectEnd();
        if (number >= mostSegments)
            throw Nonsense("too many pieces of memory");
        if (number >= m_segments.size())
            m_segments.resize(number + 1);
        if (m_segments[number].memory)
            throw Nonsense("one piece of memory twice");
        m_segments[number] = SharedSegment::of(message.descriptor);
        m_bytes += m_segments[number].bytes;
        if (m_bytes > static_cast<std::uint64_t>(m_limits.bytes))
            throw Nonsense("more memory than there was to be");
    }

    [[noreturn]] void refuse(Refusal const& refusal) const
    {
        if (refusal.isForMemory)
            throw ImportError(lackOfMemory());
        throw ImportError(refusal.reason.empty() ? "it cannot be read" : refusal.reason);
    }

    std::string lackOfMemory() const
    {
        return "it needs more memory than the " + inGigabytes(m_limits.bytes) + " that its reader may take";
    }

    ReadResult finished(Message const& message)
    {
        ReadResult result{fromBytes(message.content), std::move(m_segments)};
        std::vector<std::uint64_t> bytes;
        for (SharedSegment const& segment : result.segments)
            bytes.push_back(segment.bytes);
        checkHandedData(result.data, bytes);
        return result;
    }

    ReaderProcess& m_process;
    ReaderLimits const& m_limits;
    OneChoice& m_choose;
    kernel::Progress& m_progress;
    Patience m_patience;
    Clock::time_point m_weighed;
    std::vector<SharedSegment> m_segments;
    std::uint64_t m_bytes = 0; // of all of them
};

// Only a process that has done as it was told is kept.
ReadResult readBy(std::unique_ptr<ReaderProcess> process, ReadRequest const& request, Conversation conversation)
{
    try {
        conversation.awaitStart();
        ReadResult result = conversation.run(request);
        idleProcess() = std::move(process);
        return result;
    } catch (ChannelClosed const&) {
        throw ImportError(process->endedForTime() ? "it is damaged: the reader did not come to an end with it"
                                                  : "it is damaged: the reader did not get through it");
    } catch (Nonsense const& nonsense) {
        throw ImportError(std::string("it is damaged: what was read of it makes no sense (") + nonsense.what() + ")");
    }
}

} // namespace

void ReadingChild::endKept()
{
    idleProcess().reset();
}

ReadingChild::ReadingChild(std::string program)
    : m_program(std::move(program))
{
}

ReadResult ReadingChild::read(ReadRequest const& request, ReaderLimits const& limits, Choose const& choose,
                              kernel::Progress& progress) const
{
    progress.check();
    OneChoice choice(choose);
    if (std::unique_ptr<ReaderProcess> process = std::move(idleProcess()); process && process->program() == m_program) {
        try {
            Conversation conversation(*process, limits, choice, progress);
            return readBy(std::move(process), request, std::move(conversation));
        } catch (ImportError const&) {
            // The file may be sound: the process has read others before.
        }
    }
    auto process = std::make_unique<ReaderProcess>(m_program);
    Conversation conversation(*process, limits, choice, progress);
    return readBy(std::move(process), request, std::move(conversation));
}

} // namespace veldraw::app
