#pragma once

#include <vtkOutputWindow.h>
#include <vtkSmartPointer.h>

#include <string>
#include <vector>

namespace veldraw::app {

/// Collects what VTK complains about while it lives, instead of letting it reach the terminal.
class VtkErrorCapture
{
public:
    VtkErrorCapture();
    ~VtkErrorCapture();

    bool hasErrors() const;

    /// The first error in one line, without VTK's source file and addresses of objects; empty when there is none, or VTK tells no more than that
    /// something failed.
    std::string firstError() const;

    /// Warnings, cleaned in the same way, each text once.
    std::vector<std::string> warnings() const;

    VtkErrorCapture(VtkErrorCapture const&) = delete;
    VtkErrorCapture& operator=(VtkErrorCapture const&) = delete;

private:
    class Window;
    vtkSmartPointer<Window> m_window;
    vtkSmartPointer<vtkOutputWindow> m_previous;
};

} // namespace veldraw::app
