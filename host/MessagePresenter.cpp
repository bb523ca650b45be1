#include "host/MessagePresenter.h"

#include "host/MessageBox.h"
#include "host/MessageLog.h"

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
    MessageLog::instance().add(type, text);
    aboutToPresent()();
    if (Presenter const presenter = installedPresenter()) // a copy: a presenter may install another one
        presenter(text, type);
    else if (MessageBox::canBeShown())
        MessageBox::show(text, type);
    else
        std::fprintf(stderr, "%s%s\n", label(type), text.c_str());
}

boost::signals2::connection
MessagePresenter::connectAboutToPresent(boost::signals2::signal<void()>::slot_type const& slot)
{
    return aboutToPresent().connect(slot);
}

MessagePresenter::Presenter MessagePresenter::install(Presenter presenter)
{
    return std::exchange(installedPresenter(), std::move(presenter));
}

} // namespace veldraw::host
