// How soon loading a variable on demand ends after a cancel, from the call that cancels it to the return of the load. A tenth of
// a second is promised. The files are written by VTK: raw appended, compressed, and as text.
// Exit status 1 when one load takes longer, or does not hear the cancel at all.

#include "app/import/Importer.h"
#include "bench/kernel/CancellingWaiter.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/session/Session.h"

#include <vtkFloatArray.h>
#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkXMLImageDataWriter.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <functional>
#include <string>
#include <unistd.h>

namespace {

using Seconds = CancellingWaiter::Seconds;

constexpr int cancels = 20;
constexpr Seconds promised(0.1);

void writeImage(std::string const& path, int points, std::function<void(vtkXMLImageDataWriter&)> const& setFormat)
{
    vtkNew<vtkFloatArray> values;
    values->SetName("value");
    values->SetNumberOfTuples(points);
    for (int n = 0; n < points; ++n)
        values->SetValue(n, static_cast<float>(n % 1000) / 7.0F);
    vtkNew<vtkImageData> image;
    image->SetDimensions(points, 1, 1);
    image->GetPointData()->AddArray(values);
    vtkNew<vtkXMLImageDataWriter> writer;
    writer->SetFileName(path.c_str());
    writer->SetInputData(image);
    setFormat(*writer);
    if (writer->Write() == 0)
        throw std::runtime_error("cannot write " + path);
}

/// A session with the file in its only frame, its values left to be loaded.
class OpenFile
{
public:
    explicit OpenFile(std::string const& path)
        : m_path(path)
    {
        open();
    }

    /// @return whether the value was loaded
    bool load()
    {
        int const last = m_dataSet->variableCount();
        return m_session->perform(kernel::LoadVariables(*m_dataSet, {1}, {last}));
    }

    veldraw::kernel::Session& session() { return *m_session; }

    void open()
    {
        using namespace veldraw;
        m_session = std::make_unique<kernel::Session>();
        m_dataSet = app::importFile(QString::fromStdString(m_path), app::Deferral::Always).dataSet;
        auto const frame = std::make_shared<kernel::Frame>("frame", kernel::Rectangle{});
        frame->dataSet = m_dataSet;
        m_session->openPage({frame});
    }

private:
    std::string m_path;
    std::unique_ptr<veldraw::kernel::Session> m_session;
    std::shared_ptr<veldraw::kernel::DataSet> m_dataSet;
};

bool measure(char const* what, std::string const& path)
{
    OpenFile file(path);
    auto const start = CancellingWaiter::Clock::now();
    if (!file.load())
        throw std::runtime_error("cannot load " + path);
    Seconds const whole = CancellingWaiter::Clock::now() - start;
    Seconds longest{};
    int cancelled = 0;
    for (int number = 0; number < cancels; ++number) {
        file.open();
        CancellingWaiter waiter;
        waiter.setDelay(whole * number / cancels);
        file.session().setWaiter(&waiter);
        cancelled += file.load() ? 0 : 1;
        longest = std::max(longest, waiter.sinceCancel());
        file.session().setWaiter(nullptr);
    }
    std::printf("%-16s loaded in %8.1f ms, %2d of %d loads cancelled, at most %6.1f ms after the cancel\n", what,
                1e3 * whole.count(), cancelled, cancels, 1e3 * longest.count());
    return longest < promised && cancelled > 0;
}

} // namespace

int main()
{
    auto const folder = std::filesystem::temp_directory_path() / ("veldraw-cancel-" + std::to_string(::getpid()));
    bool good = false;
    try {
        std::filesystem::create_directory(folder);
        auto const pathOf = [&folder](char const* name) { return (folder / name).string(); };
        writeImage(pathOf("raw.vti"), 100000000, [](vtkXMLImageDataWriter& writer) {
            writer.EncodeAppendedDataOff();
            writer.SetCompressorTypeToNone();
        });
        writeImage(pathOf("compressed.vti"), 50000000,
                   [](vtkXMLImageDataWriter& writer) { writer.SetCompressorTypeToZLib(); });
        writeImage(pathOf("text.vti"), 10000000, [](vtkXMLImageDataWriter& writer) { writer.SetDataModeToAscii(); });
        good = measure("raw", pathOf("raw.vti"));
        good = measure("compressed", pathOf("compressed.vti")) && good;
        good = measure("text", pathOf("text.vti")) && good;
    } catch (std::exception const& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    std::filesystem::remove_all(folder);
    return good ? 0 : 1;
}
