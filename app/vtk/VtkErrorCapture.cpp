#include "app/vtk/VtkErrorCapture.h"

#include <vtkLogger.h>
#include <vtkObjectFactory.h>

#include <algorithm>
#include <mutex>

namespace veldraw::app {

namespace {

// "vtkThing (0x1234) is lost" becomes "vtkThing is lost".
std::string withoutAddresses(std::string text)
{
    for (std::size_t at = text.find("(0x"); at != std::string::npos; at = text.find("(0x")) {
        std::size_t const end = text.find(')', at);
        if (end == std::string::npos)
            break;
        std::size_t const start = at > 0 && text[at - 1] == ' ' ? at - 1 : at;
        text.erase(start, end + 1 - start);
    }
    return text;
}

// "ERROR: In file, line 1\nvtkThing (0x1234): Text\n\n" becomes "Text".
std::string cleaned(std::string const& text)
{
    std::size_t start = text.find('\n');
    start = start == std::string::npos ? 0 : start + 1;
    std::size_t const object = text.find("): ", start);
    if (object != std::string::npos)
        start = object + 3;
    std::string result;
    for (char c : text.substr(start)) {
        bool const space = c == '\n' || c == '\r' || c == '\t' || c == ' ';
        if (!space)
            result += c;
        else if (!result.empty() && result.back() != ' ')
            result += ' ';
    }
    while (!result.empty() && (result.back() == ' ' || result.back() == '.'))
        result.pop_back();
    return withoutAddresses(result);
}

// What VTK's pipeline says of an object that has failed tells nothing to anybody but its author; the reason has been told before, if at all.
bool isAboutThePipeline(std::string const& text)
{
    return text.compare(0, 10, "Algorithm ") == 0;
}

} // namespace

class VtkErrorCapture::Window : public vtkOutputWindow
{
public:
    vtkTypeMacro(Window, vtkOutputWindow) static Window* New();

    void DisplayText(char const*) override {}
    void DisplayErrorText(char const* text) override
    {
        if (!isAboutUnusedNotes(text))
            add(errors, text);
    }
    void DisplayWarningText(char const* text) override { add(warnings, text); }
    // The legacy readers only warn when values are missing.
    void DisplayGenericWarningText(char const* text) override { add(isError(text) ? errors : warnings, text); }
    void DisplayDebugText(char const*) override {}

    std::mutex mutex; // VTK's own worker threads may complain too
    std::vector<std::string> errors;
    std::vector<std::string> warnings;

protected:
    // VTK notes the lengths of vectors beside an array and cannot read what it wrote there when one is infinite.
    static bool isAboutUnusedNotes(char const* text)
    {
        return text && cleaned(text).find("Error reading InformationKey element") == 0;
    }

    static bool isError(char const* text) { return text && cleaned(text).compare(0, 13, "Error reading") == 0; }

    void add(std::vector<std::string>& list, char const* text)
    {
        std::lock_guard<std::mutex> const lock(mutex);
        // A damaged file can cause a complaint a value; the first ones tell what matters.
        if (list.size() < 20)
            list.push_back(cleaned(text ? text : ""));
    }
};

vtkStandardNewMacro(VtkErrorCapture::Window)

    VtkErrorCapture::VtkErrorCapture()
    : m_window(vtkSmartPointer<Window>::New())
    , m_previous(vtkOutputWindow::GetInstance())
{
    vtkOutputWindow::SetInstance(m_window);
    vtkLogger::SetStderrVerbosity(vtkLogger::VERBOSITY_OFF); // the log repeats what goes to the output window
}

VtkErrorCapture::~VtkErrorCapture()
{
    vtkOutputWindow::SetInstance(m_previous);
    vtkLogger::SetStderrVerbosity(vtkLogger::VERBOSITY_INFO); // as it is when VTK starts
}

bool VtkErrorCapture::hasErrors() const
{
    std::lock_guard<std::mutex> const lock(m_window->mutex);
    return !m_window->errors.empty();
}

std::string VtkErrorCapture::firstError() const
{
    std::lock_guard<std::mutex> const lock(m_window->mutex);
    auto const& errors = m_window->errors;
    auto const first = std::find_if_not(errors.begin(), errors.end(), isAboutThePipeline);
    return first == errors.end() ? std::string() : *first;
}

std::vector<std::string> VtkErrorCapture::warnings() const
{
    std::lock_guard<std::mutex> const lock(m_window->mutex);
    std::vector<std::string> result;
    for (std::string const& warning : m_window->warnings) {
        if (std::find(result.begin(), result.end(), warning) == result.end())
            result.push_back(warning);
    }
    return result;
}

} // namespace veldraw::app
