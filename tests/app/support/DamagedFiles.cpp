#include "tests/app/support/DamagedFiles.h"

#include "tests/app/support/FileHelpers.h"

#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

namespace {

std::string damaged(std::string content, int number, int count)
{
    if (number % 2 == 0)
        return content.substr(0,
                              1 + content.size() * static_cast<std::size_t>(number) / static_cast<std::size_t>(count));
    std::mt19937 random(static_cast<unsigned int>(number));
    std::string const letters = "0123456789-. \n";
    for (auto left = 1 + random() % 8; left > 0; --left) {
        std::size_t const at =
            random() % (random() % 2 == 0 ? content.size() : std::min<std::size_t>(content.size(), 300));
        content[at] = random() % 2 == 0 ? static_cast<char>(random() % 256) : letters[random() % letters.size()];
    }
    return content;
}

} // namespace

DamagedOpenings openDamaged(SoundFile const& file, int count, std::string const& victim)
{
    TemporaryFolder const folder;
    for (auto const& [name, content] : file.others)
        folder.write(name, content);
    std::string const path = folder.write(file.name, file.content);
    std::string const hurt = victim.empty() ? file.name : victim;
    std::string const whole = contentOf(folder.path(hurt));
    DamagedOpenings result;
    for (int n = 0; n < count; ++n) {
        folder.write(hurt, damaged(whole, n, count));
        try {
            bool const hasZones = import(path).dataSet->zoneCount() > 0;
            ++result.opened;
            if (!hasZones)
                result.problems.push_back(std::to_string(n) + " opened without zones");
        } catch (app::ImportError const& error) {
            ++result.refused;
            if (std::string(error.what()).rfind("Cannot open \"" + path + "\": ", 0) != 0)
                result.problems.push_back(std::to_string(n) + ": " + error.what());
        }
    }
    return result;
}

void expectToStandDamage(SoundFile const& file, int count, std::string const& victim)
{
    TemporaryFolder const folder;
    for (auto const& [name, content] : file.others)
        folder.write(name, content);
    EXPECT_EQ(problemWith(folder.write(file.name, file.content)), "");
    DamagedOpenings const openings = openDamaged(file, count, victim);
    std::string const what = file.name + " " + victim;
    EXPECT_EQ(openings.problems, std::vector<std::string>()) << what;
    EXPECT_EQ(openings.opened + openings.refused, count) << what;
    EXPECT_GT(openings.refused, count / 10) << what << " is hardly looked at";
}

} // namespace veldraw::tests
