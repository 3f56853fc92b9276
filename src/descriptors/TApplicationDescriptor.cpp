#include "TApplicationDescriptor.h"

#include <cstring>

#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kProfileLength = 5;
const U32 kFlagsLength = 2; // service_bound_flag .. reserved, application_priority
} // namespace

TApplicationDescriptor::TApplicationDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length),
      m_bServiceBoundFlag(FALSE),
      m_iVisibility(0),
      m_iApplicationPriority(0),
      m_bVisibilityUsers(FALSE),
      m_bVisibilityApps(FALSE),
      m_iTransportProtSize(0),
      m_pTransportProts(nullptr)
{
}

TApplicationDescriptor::TApplicationDescriptor(TApplicationDescriptor* source)
    : TApplicationDescriptor(nullptr, 0)
{
    if (!source)
        return;
    for (const auto& entry : source->m_pProfiles.items())
        m_pProfiles.add(entry.first, new TApplicationDescriptorProfile(*entry.second));
    m_bServiceBoundFlag = source->m_bServiceBoundFlag;
    m_iVisibility = source->m_iVisibility;
    m_iApplicationPriority = source->m_iApplicationPriority;
    m_bVisibilityUsers = source->m_bVisibilityUsers;
    m_bVisibilityApps = source->m_bVisibilityApps;
    m_iTransportProtSize = source->m_iTransportProtSize;
    if (source->m_pTransportProts && m_iTransportProtSize) {
        m_pTransportProts = newBlock<VURO_U8>(m_iTransportProtSize);
        std::memcpy(m_pTransportProts, source->m_pTransportProts, m_iTransportProtSize);
    }
}

TApplicationDescriptor::~TApplicationDescriptor()
{
    freeBlock(m_pTransportProts);
}

TApplicationDescriptor* TApplicationDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                      U16* errorCode)
{
    return parseDescriptor<TApplicationDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TApplicationDescriptor* TApplicationDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                      U16* errorCode, const U8* limit)
{
    return parseDescriptor<TApplicationDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

void TApplicationDescriptor::addProfile(TApplicationDescriptorProfile* profile)
{
    if (profile)
        m_pProfiles.add(profile->getApplicationProfile(), profile);
}

BOOL TApplicationDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    U8* position = m_pData + COMMON_HEADER_LENGTH;
    U32 remaining = dataLength - COMMON_HEADER_LENGTH;
    const U8 reported = static_cast<U8>(remaining);
    // A descriptor_length running past the buffer stops at its end with the
    // class's length line.
    const auto pastBuffer = [&]() {
        VURO_LOGW("%s: TApplicationDescriptor:: parse: Section length exceeded. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return FALSE;
    };
    if (!fits(position, limit, 1))
        return pastBuffer();
    U8 profilesLength = position[0];
    ++position;
    --remaining;
    if (profilesLength > remaining) {
        VURO_LOGW("%s: TApplicationDescriptor:: parse: Application Profiles Length exceeds Descriptor Length: %u > "
                  "%u. Aborting!",
                  VURO_LOG_ORIGIN, static_cast<U32>(profilesLength), remaining);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return FALSE;
    }
    // Each profile is handed what is left of the profiles length, so a length
    // that is not a multiple of 5 ends with a failing profile.
    while (profilesLength != 0) {
        TApplicationDescriptorProfile* profile =
            TApplicationDescriptorProfile::parse(position, profilesLength, nullptr, errorCode, limit);
        if (!profile)
            return FALSE;
        // A repeated profile number keeps the later profile; the earlier one
        // is freed.
        m_pProfiles.store(profile->getApplicationProfile(), profile);
        profilesLength = static_cast<U8>(profilesLength - kProfileLength);
        remaining -= kProfileLength;
        position += kProfileLength;
    }
    if (remaining < kFlagsLength)
        return pastBuffer();
    if (!fits(position, limit, remaining))
        return pastBuffer();
    m_bServiceBoundFlag = (position[0] & 0x80) ? TRUE : FALSE;
    m_iVisibility = static_cast<U8>((position[0] >> 5) & 0x03);
    m_bVisibilityUsers = (m_iVisibility & 0x02) ? TRUE : FALSE;
    m_bVisibilityApps = (m_iVisibility & 0x01) ? TRUE : FALSE;
    m_iApplicationPriority = position[1];
    position += kFlagsLength;
    remaining -= kFlagsLength;
    // One transport_protocol_label per remaining byte.
    copyByteBlock(position, remaining, m_pTransportProts, m_iTransportProtSize);
    parsedLength = reported;
    return TRUE;
}

} // namespace Vuro
