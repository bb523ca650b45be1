#include "app/import/zones/ImportedZone.h"

#include "app/import/zones/DataSetOfZones.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

kernel::Field oneValue(double value)
{
    auto const buffer = kernel::Buffer::allocate(FieldDataType_Double, 1);
    buffer->setValue(0, value);
    return kernel::Field(std::make_shared<kernel::ShareGroup>(buffer), ValueLocation_Nodal);
}

app::ImportedZone onePoint()
{
    app::ImportedZone zone;
    zone.zone = std::make_shared<kernel::Zone>("a", ZoneType_Ordered, 1, 1, 1);
    return zone;
}

std::string namesIn(app::ImportedZone const& zone)
{
    std::string names;
    for (auto const& field : zone.fields)
        names += (names.empty() ? "" : ",") + field.name;
    return names;
}

} // namespace

TEST(ImportedZone, NumbersNamesThatAreTaken)
{
    app::ImportedZone zone = onePoint();
    for (char const* name : {"p", "p", "p (3)", "p", "", "p", ""})
        zone.addField(name, oneValue(0.0));
    EXPECT_EQ(namesIn(zone), "p,p (2),p (3),p (4),Variable,p (5),Variable (2)");
}

TEST(ImportedZone, TakesNamesThatAreNoUtf8ForLatin1)
{
    app::ImportedZone zone = onePoint();
    zone.zone->name = "Fl\xfcgel";
    std::vector<kernel::Field> components;
    components.push_back(oneValue(1.0));
    components.push_back(oneValue(2.0));
    zone.addArray("Kr\xe4"
                  "fte",
                  std::move(components), {}, {"l\xe4ngs", "quer"}, {});
    zone.addField("Größe", oneValue(3.0));
    zone.variableNames = {"Größe", "Kr\xe4"
                                   "fte_Y"};
    zone.notesOnVariables["Kr\xe4"
                          "fte_X"]
        .set("Unit", "N", true);
    EXPECT_EQ(namesIn(zone), "Kräfte_X,Kräfte_Y,Größe");
    EXPECT_EQ(zone.fields[0].array->name, "Kräfte");
    EXPECT_EQ(zone.fields[0].array->componentNames, (std::vector<std::string>{"längs", "quer"}));
    std::vector<app::ImportedZone> zones;
    zones.push_back(std::move(zone));
    auto const dataSet = app::dataSetOf(std::move(zones), "Stra\xdf"
                                                          "e.vtu");
    EXPECT_EQ(dataSet->title(), "Straße.vtu");
    EXPECT_EQ(dataSet->zone(1)->name, "Flügel");
    EXPECT_EQ(dataSet->variable(1)->name, "Größe") << "in the order that the file asks for";
    EXPECT_EQ(dataSet->variable(2)->name, "Kräfte_Y");
    EXPECT_EQ(dataSet->variable(dataSet->findVariable("Kräfte_X"))->auxiliaryData.size(), 1);
}

// As many names were once compared with all others, which took half a minute.
TEST(ImportedZone, TakesAsManyComponentsAsAFileMayDeclare)
{
    constexpr int count = 65536;
    app::ImportedZone zone = onePoint();
    std::vector<kernel::Field> components;
    for (int n = 0; n < count; ++n)
        components.push_back(oneValue(n));
    zone.addArray("v", std::move(components), {}, {}, {});
    for (int n = 0; n < count; ++n)
        zone.addField("same", oneValue(n));
    std::vector<app::ImportedZone> zones;
    zones.push_back(std::move(zone));
    auto const dataSet = app::dataSetOf(std::move(zones), "many");
    ASSERT_EQ(dataSet->variableCount(), 2 * count);
    EXPECT_EQ(dataSet->variable(count)->name, "v_65536");
    EXPECT_EQ(dataSet->variable(2 * count)->name, "same (65536)");
    EXPECT_EQ(dataSet->field(1, count)->group()->buffer()->value(0), count - 1);
}

} // namespace veldraw::tests
