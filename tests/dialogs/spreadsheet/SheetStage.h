#pragma once

#include "tests/dialogs/models/SampleSession.h"
#include "tests/dialogs/support/ConstantLoader.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::tests {

/// A data set that is made zone by zone and then shown in the one frame of the real kernel.
class SheetStage
{
public:
    using Values = std::function<double(int variable, std::int64_t index)>;

    /// Values of a field by variable and zero-based index: 100 * variable + index.
    static double numbered(int variable, std::int64_t index);

    explicit SheetStage(std::vector<std::string> const& variables);

    /// Appends a zone with passive fields. @return its number
    int addZone(std::string const& name, ZoneType_e type, std::int64_t i, std::int64_t j, std::int64_t k);

    /// Appends an ordered zone with passive fields whose dimensions are not known before they are asked for.
    int addDeferredZone(std::string const& name, std::int64_t i, std::int64_t j, std::int64_t k);

    /// Gives a field of a zone values, of one type at one place.
    void fill(int zone, int variable, FieldDataType_e type, ValueLocation_e location, Values const& values = numbered);
    /// Gives a field values as they are stored.
    void fillFrom(int zone, int variable, std::shared_ptr<kernel::Buffer> const& buffer);
    /// Gives all fields of a zone numbered nodal floats.
    void fillAll(int zone);
    /// Gives a field values that are not loaded, all @p value when they are. @return what brings them
    std::shared_ptr<ConstantLoader> defer(int zone, int variable, double value);
    /// Lets a field of a zone share the storage of another zone's.
    void share(int zone, int variable, int sourceZone);

    /// Shows the data set in the frame, or comes back to it. Zones and fields can be changed before only.
    void show();
    /// Goes to a frame without a data set.
    void hide();

    kernel::DataSet& dataSet() const { return *m_dataSet; }
    kernel::Session& session() const { return m_sample.session(); }
    std::shared_ptr<kernel::Frame> frame() const { return m_sample.frame(); }
    /// The value as the kernel has it.
    double stored(int zone, int variable, std::int64_t index) const;

private:
    kernel::Field& field(int zone, int variable);

    SampleSession m_sample;
    std::shared_ptr<kernel::DataSet> m_dataSet = std::make_shared<kernel::DataSet>("Sheets");
};

} // namespace veldraw::tests
