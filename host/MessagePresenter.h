#pragma once

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <boost/signals2/signal.hpp>

#include <functional>
#include <string>
#include <vector>

namespace veldraw::host {

/// How messages reach the user: a modal message box, standard error when there is no screen, or what was installed
/// instead. Each message is taken down in the message log first.
class VELDRAW_PLATFORM_API MessagePresenter
{
public:
    /// Tells a text, UTF-8, and returns when the user has read it.
    typedef std::function<void(std::string const& text, MessageBoxType_e type)> Presenter;

    static void present(std::string const& text, MessageBoxType_e type);

    /// Calls @p slot before each message is told, so that what stands behind it can be brought up to date.
    static boost::signals2::connection connectAboutToPresent(boost::signals2::signal<void()>::slot_type const& slot);

    /// Gives the messages of its scope something more to say to those who ask: why something was refused.
    class VELDRAW_PLATFORM_API Details
    {
    public:
        /// @param text UTF-8; empty for nothing
        explicit Details(std::string text);
        ~Details();
        Details(Details const&) = delete;
        Details& operator=(Details const&) = delete;

    private:
        std::string m_outer;
    };

    /// What the message that is being presented has to say more; empty for nothing.
    static std::string const& details();

    struct Message
    {
        std::string text;
        MessageBoxType_e type;
        std::string details;
    };

    /// Keeps the messages of its scope: they are neither told nor taken down. One at a time.
    class VELDRAW_PLATFORM_API Capture
    {
    public:
        Capture();
        ~Capture();

        /// What has come so far.
        std::vector<Message> const& messages() const { return m_messages; }

        Capture(Capture const&) = delete;
        Capture& operator=(Capture const&) = delete;

    private:
        friend class MessagePresenter;
        std::vector<Message> m_messages;
    };

    static bool isCapturing();

    /// Replaces the way messages are told; an empty function brings the default back.
    /// @return what was installed before, empty for the default
    static Presenter install(Presenter presenter);

    MessagePresenter() = delete;
};

} // namespace veldraw::host
