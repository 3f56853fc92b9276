#include "FuzzEntries.h"

namespace VuroFuzz {

using namespace Vuro;

namespace {

void appPortalUpdate(U8* data, U32 length)
{
    U16 code = 0;
    TAppPortalUpdate* record = TAppPortalUpdate::parse(data, length, &code);
    if (record)
        delete record->getIds();
    delete record;
}

} // namespace

std::vector<Entry> downloadEntries()
{
    return {
        // Software download trigger table
        {"TSDTTTable", table<TSDTTTable>},
        {"TDownloadContent", loopEntry<TDownloadContent>},
        {"TScheduleInfo", item<TScheduleInfo>},
        {"TDownloadContentDescriptor", descriptor<TDownloadContentDescriptor>},
        {"TDownloadContentDescriptor/within", descriptorWithin<TDownloadContentDescriptor>},
        {"TDownloadContentDescriptorItem", item<TDownloadContentDescriptorItem>},
        {"TCompatibilityDescriptor", item<TCompatibilityDescriptor>},
        {"TCompatibilityDescriptorItem", item<TCompatibilityDescriptorItem>},
        {"TCompatibilityDescriptorSubItem", item<TCompatibilityDescriptorSubItem>},
        {"TAppPortalUpdate", appPortalUpdate},
    };
}

} // namespace VuroFuzz
