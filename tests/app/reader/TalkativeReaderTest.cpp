#include "app/reader/TalkativeReader.h"

#include "app/import/Importer.h"
#include "kernel/base/Parallel.h"
#include "kernel/base/Progress.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/WatchedProgress.h"

#include <vtkFloatArray.h>
#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkXMLImageDataWriter.h>

#include <filesystem>
#include <gtest/gtest.h>
#include <istream>
#include <mutex>
#include <random>
#include <sstream>
#include <string>

namespace veldraw::tests {

namespace {

constexpr int textSize = 1000000; // some pieces
constexpr std::size_t bytesOfPiece = std::size_t{1} << 17;

/// A stream over a text of which every place is known by its digits.
class TalkativeStream : public testing::Test
{
protected:
    static std::string digits()
    {
        std::string text;
        for (int n = 0; n < textSize / 8; ++n)
            text += std::to_string(10000000 + n);
        return text;
    }

    std::string const text = digits();
    std::stringbuf source{text, std::ios_base::in};
    int told = 0;
    app::TalkativeBuffer buffer{source, [this] { ++told; }};
    std::istream stream{&buffer};
};

} // namespace

TEST_F(TalkativeStream, ReadsWhatTheSourceHas)
{
    std::string read(text.size(), ' ');
    stream.read(read.data(), static_cast<std::streamsize>(read.size()));
    EXPECT_TRUE(read == text);
    EXPECT_GT(told, 3);
    EXPECT_EQ(stream.get(), std::istream::traits_type::eof());
}

TEST_F(TalkativeStream, GoesWhereItIsSent)
{
    std::mt19937 random(3);
    for (int round = 0; round < 2000; ++round) {
        auto const place = static_cast<std::size_t>(random() % (textSize - 20));
        std::string read(8, ' ');
        switch (round % 3) {
        case 0:
            stream.seekg(static_cast<std::streamoff>(place), std::ios_base::beg);
            break;
        case 1:
            stream.seekg(static_cast<std::streamoff>(place) - stream.tellg(), std::ios_base::cur);
            break;
        default:
            stream.seekg(static_cast<std::streamoff>(place) - textSize, std::ios_base::end);
            break;
        }
        ASSERT_EQ(stream.tellg(), static_cast<std::streamoff>(place));
        stream.read(read.data(), 8);
        ASSERT_EQ(read, text.substr(place, 8));
        ASSERT_EQ(stream.tellg(), static_cast<std::streamoff>(place) + 8);
    }
}

TEST_F(TalkativeStream, ReadsNothingAgainThatIsAtHand)
{
    stream.seekg(100);
    stream.get();
    int const before = told;
    for (int place = 5000; place > 100; place -= 100) {
        stream.seekg(place);
        EXPECT_EQ(stream.get(), text[static_cast<std::size_t>(place)]);
    }
    EXPECT_EQ(told, before);
}

namespace {

/// An import of one array in text that is cancelled at some place.
class TextImport : public testing::Test
{
protected:
    TextImport()
    {
        vtkNew<vtkFloatArray> values;
        values->SetName("value");
        values->SetNumberOfTuples(points);
        for (int n = 0; n < points; ++n)
            values->SetValue(n, static_cast<float>(n) / 7.0F);
        vtkNew<vtkImageData> image;
        image->SetDimensions(points, 1, 1);
        image->GetPointData()->AddArray(values);
        vtkNew<vtkXMLImageDataWriter> writer;
        writer->SetFileName(path.c_str());
        writer->SetInputData(image);
        writer->SetDataModeToAscii();
        EXPECT_EQ(writer->Write(), 1);
    }

    /// @return how often an import asks until its array is read: with each piece of the file, and besides where that takes long
    int questionsWithin() const
    {
        int questions = 0;
        std::mutex mutex;
        WatchedProgress progress([&](double fraction) {
            std::lock_guard<std::mutex> const lock(mutex);
            questions += isWithin(fraction) ? 1 : 0;
            return true;
        });
        app::importFile(QString::fromStdString(path), app::Deferral::Auto, progress);
        return questions;
    }

    /// @param isWanted whether a question is answered with no, by how far the import has come; every later one is
    /// @return how many were
    template <typename IsWanted>
    int refusedQuestions(IsWanted const& isWanted) const
    {
        int refused = 0;
        std::mutex mutex;
        WatchedProgress progress([&](double fraction) {
            std::lock_guard<std::mutex> const lock(mutex);
            refused += refused > 0 || isWanted(fraction) ? 1 : 0;
            return refused == 0;
        });
        EXPECT_THROW(app::importFile(QString::fromStdString(path), app::Deferral::Auto, progress), kernel::Interrupted);
        return refused;
    }

    static bool isWithin(double fraction) { return fraction < 1.0; }

    static constexpr int points = 200000;
    TemporaryFolder const folder;
    std::string const path = folder.path("text.vti");
};

} // namespace

TEST_F(TextImport, HearsACancelWithinAnArray)
{
    auto const pieces = static_cast<int>(std::filesystem::file_size(path) / bytesOfPiece);
    ASSERT_GT(pieces, 6);
    EXPECT_GE(questionsWithin(), pieces);
    for (int number = 1; number <= pieces; ++number) {
        int questions = 0;
        auto const isThat = [&](double fraction) { return isWithin(fraction) && ++questions == number; };
        EXPECT_EQ(refusedQuestions(isThat), 1) << "nothing is asked after that, of question " << number;
    }
}

// Several threads look for the ranges of what has been read: when one of them hears a no, others may be about to ask.
TEST_F(TextImport, AsksOnNoThreadTwiceAfterACancel)
{
    for (int round = 0; round < 5; ++round) {
        int const refused = refusedQuestions([](double fraction) { return fraction >= 1.0; });
        EXPECT_GE(refused, 1);
        EXPECT_LE(refused, kernel::threadCount());
    }
}

} // namespace veldraw::tests
