#include "platform/vdsdkbase/VelUtilFieldMap.h"

#include "kernel/api/ApiSupport.h"
#include "kernel/data/TimeStrands.h"

using namespace veldraw::kernel;

bool VelUtilFieldMapGetZones(int fieldMap, Set_s** zones)
{
    api::store<Set_s*>(zones, nullptr);
    return zones != nullptr && api::answerOr(false, [&] {
               std::shared_ptr<DataSet> const dataSet = api::session().activeDataSet();
               if (!dataSet) {
                   return false;
               }
               std::vector<NumberSet> maps = fieldMaps(*dataSet);
               if (fieldMap < 1 || fieldMap > static_cast<int>(maps.size())) {
                   return false;
               }
               *zones = new Set_s{std::move(maps[static_cast<std::size_t>(fieldMap - 1)])};
               return true;
           });
}
