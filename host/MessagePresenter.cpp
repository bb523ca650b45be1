#include "host/MessagePresenter.h"

#include "host/MessageBox.h"
#include "host/MessageLog.h"
#include "platform/signals/WholeConnection.h"

#include <cstdio>
#include <utility>

namespace veldraw::host {

namespace {

MessagePresenter::Presenter& installedPresenter()
{
    static auto* const presenter = new MessagePresenter::Presenter;
    return *presenter;
}

boost::signals2::signal<void()>& aboutToPresent()
{
    static auto* const signal = new boost::signals2::signal<void()>;
    return *signal;
}

std::string& currentDetails()
{
    static auto* const details = new std::string;
    return *details;
}

MessagePresenter::Capture*& currentCapture()
{
    static MessagePresenter::Capture* capture = nullptr;
    return capture;
}

char const* label(MessageBoxType_e type)
{
    switch (type) {
    case MessageBoxType_Error:
        return "Error: ";
    case MessageBoxType_Warning:
        return "Warning: ";
    case MessageBoxType_Information:
        break;
    }
    return "";
}

} // namespace

void MessagePresenter::present(std::string const& text, MessageBoxType_e type)
{
    if (Capture* const capture = currentCapture()) {
        capture->m_messages.push_back({text, type, details()});
        return;
    }
    MessageLog::instance().add(type, text);
    aboutToPresent()();
    if (Presenter const presenter = installedPresenter()) // a copy: a presenter may install another one
        presenter(text, type);
    else if (MessageBox::canBeShown())
        MessageBox::show(text, type, details());
    else
        std::fprintf(stderr, "%s%s%s%s\n", label(type), text.c_str(), details().empty() ? "" : "\n  ",
                     details().c_str());
}

MessagePresenter::Capture::Capture()
{
    currentCapture() = this;
}

MessagePresenter::Capture::~Capture()
{
    currentCapture() = nullptr;
}

bool MessagePresenter::isCapturing()
{
    return currentCapture() != nullptr;
}

MessagePresenter::Details::Details(std::string text)
    : m_outer(std::exchange(currentDetails(), std::move(text)))
{
}

MessagePresenter::Details::~Details()
{
    currentDetails().swap(m_outer);
}

std::string const& MessagePresenter::details()
{
    return currentDetails();
}

boost::signals2::connection
MessagePresenter::connectAboutToPresent(boost::signals2::signal<void()>::slot_type const& slot)
{
    return sdk::connectWhole(slot, [](auto const& whole) { return aboutToPresent().connect(whole); });
}

MessagePresenter::Presenter MessagePresenter::install(Presenter presenter)
{
    return std::exchange(installedPresenter(), std::move(presenter));
}

} // namespace veldraw::host
