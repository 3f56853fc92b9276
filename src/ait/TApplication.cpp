#include "TApplication.h"

#include "../descriptors/TGingaJavaApplicationDescriptor.h"
#include "../descriptors/TGingaJavaApplicationLocationDescriptor.h"
#include "../descriptors/TGingaNCLApplicationDescriptor.h"
#include "../descriptors/TGingaNCLApplicationLocationDescriptor.h"
#include "../utils/VuroParseSupport.h"
#include "TAITTable.h"
#include "TApplicationDescriptorSlots.h"

namespace Vuro {

namespace {
const U32 kFixedAfterIdentifier = 3; // application_control_code, reserved, loop length
const U32 kDescriptorHeader = TISDBTDescriptor::COMMON_HEADER_LENGTH;

// A copy of a descriptor the source returned, or null.
template <class D>
D* copyOf(D* source)
{
    return source ? new D(source) : nullptr;
}

// Ginga descriptors are copied as the class their tag names (an object of
// another class under that tag copies as an empty one).
template <class Java, class NCL, class Base>
Base* copyGinga(Base* source)
{
    if (!source)
        return nullptr;
    switch (source->getDescriptorTag()) {
    case Java::DESCRIPTOR_TAG:
        return new Java(dynamic_cast<Java*>(source));
    case NCL::DESCRIPTOR_TAG:
        return new NCL(dynamic_cast<NCL*>(source));
    default:
        return nullptr;
    }
}
} // namespace

using Slots = TApplicationDescriptorSlots<TApplication>;

TApplication::TApplication(U8* data, U32 length)
    : TISDBTDataHolder(data, length, TRUE),
      m_pParentAITTable(nullptr),
      m_iControlCode(0),
      m_iApplicationType(0),
      m_pAppIdentifier(nullptr)
{
}

TApplication::TApplication(TApplication* source, BOOL inherit)
    : TApplication(source ? source->m_pData : nullptr, source ? source->m_iDataLength : 0)
{
    if (!source)
        return;
    m_sHashId = source->m_sHashId;
    m_iControlCode = source->m_iControlCode;
    m_iApplicationType = source->m_iApplicationType;
    m_pAppIdentifier = source->m_pAppIdentifier ? new TApplicationIdentifier(source->m_pAppIdentifier) : nullptr;
    m_pApplicationDesc = copyOf(source->getApplicationDescriptor(inherit, nullptr));
    m_pApplicationNameDesc = copyOf(source->getApplicationNameDescriptor(inherit, nullptr));
    m_pApplicationIconDesc = copyOf(source->getApplicationIconDescriptor(inherit, nullptr));
    m_pExternalAppAuthDesc = copyOf(source->getExternalApplicationAuthorizationDescriptor(inherit, nullptr));
    m_pTransportProtocolDesc =
        TTransportProtocolDescriptor::clone(source->getTransportProtocolDescriptor(inherit, nullptr));
    m_pIPSignalingDesc = copyOf(source->getIPSignalingDescriptor(inherit, nullptr));
    m_pPrefetchDesc = copyOf(source->getPrefetchDescriptor(inherit, nullptr));
    m_pDIILocationDesc = copyOf(source->getDIILocationDescriptor(inherit, nullptr));
    m_pGingaAppParamsDesc = copyGinga<TGingaJavaApplicationDescriptor, TGingaNCLApplicationDescriptor>(
        source->getGingaApplicationDescriptor(inherit, nullptr));
    m_pGingaAppLocationDesc =
        copyGinga<TGingaJavaApplicationLocationDescriptor, TGingaNCLApplicationLocationDescriptor>(
            source->getGingaApplicationLocationDescriptor(inherit, nullptr));
}

// The identifier, then the descriptors; the parent table is not owned.
TApplication::~TApplication()
{
    delete m_pAppIdentifier;
    Slots::release(*this);
}

TISDBTDescriptor* TApplication::getDescriptor(U8 tag) const
{
    return Slots::get(*this, tag);
}

std::list<U8> TApplication::getDescriptorTags() const
{
    return Slots::tags(*this);
}

TApplication* TApplication::rejectLength(TApplication* application, U32 length, U32 available, U16* errorCode)
{
    VURO_LOGW("%s: TApplication::parse: Item length not valid: %u > %u. Aborting!", VURO_LOG_ORIGIN, length,
              available);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    delete application;
    return nullptr;
}

TApplication* TApplication::parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                                  U16* errorCode)
{
    return parse(sectionData, dataLength, parseDescriptors, itemLength, errorCode,
                 outerLimit(sectionData, dataLength));
}

TApplication* TApplication::parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                                  U16* errorCode, const U8* limit)
{
    const U32 identifierLength = TApplicationIdentifier::MINIMUM_DESCRIPTOR_LENGTH;
    if (dataLength < identifierLength || !fits(sectionData, limit, identifierLength)) {
        VURO_LOGW("%s: TApplication::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
                  dataLength < identifierLength ? dataLength : bytesLeft(sectionData, limit));
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    // The held copy runs to the end of the length handed in, or to the end of
    // the buffer when that length claims more.
    const U32 available = bytesLeft(sectionData, limit);
    TApplication* application = new TApplication(sectionData, dataLength < available ? dataLength : available);
    U32 remaining = dataLength;
    U32 consumed = 0;
    application->m_pAppIdentifier =
        TApplicationIdentifier::parse(sectionData, remaining, parseDescriptors, &consumed, errorCode, limit);
    if (!application->m_pAppIdentifier) {
        VURO_LOGW("%s: TApplication::parse: Invalid Application Identifier. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_ITEM);
        delete application;
        return nullptr;
    }
    application->m_sHashId = TApplicationIdentifier::calculateHashID(application->m_pAppIdentifier);
    U8* position = sectionData + consumed;
    remaining -= consumed;

    // Handed 6 to 8 bytes, the fixed fields still follow and remaining wraps
    // below zero (unsigned), so the length checks below pass; the reads stay
    // inside the buffer and fail at its end.
    if (!fits(position, limit, kFixedAfterIdentifier))
        return rejectLength(application, kFixedAfterIdentifier, bytesLeft(position, limit), errorCode);
    application->m_iControlCode = position[0];
    U16 loopLength = static_cast<U16>(((position[1] & 0x0F) << 8) | position[2]);
    position += kFixedAfterIdentifier;
    remaining -= kFixedAfterIdentifier;
    consumed += kFixedAfterIdentifier;
    if (loopLength > remaining)
        return rejectLength(application, loopLength, remaining, errorCode);

    // The loop count is 16-bit and ends only at exactly zero. Each descriptor
    // is checked against what remains (unsigned: with fewer than 2 bytes left
    // any length passes). A known descriptor must also lie inside the buffer
    // before it is parsed; an unknown one is skipped unread.
    while (loopLength != 0) {
        if (!fits(position, limit, kDescriptorHeader))
            return rejectLength(application, kDescriptorHeader, bytesLeft(position, limit), errorCode);
        const U8 tag = position[0];
        const U32 length = position[1];
        if (length > remaining - kDescriptorHeader)
            return rejectLength(application, length, remaining - kDescriptorHeader, errorCode);
        const U32 total = length + kDescriptorHeader;
        // A Ginga descriptor names the application's type before it is parsed.
        if (tag == Slots::GINGA_J_APPLICATION || tag == Slots::GINGA_J_LOCATION)
            application->m_iApplicationType = TYPE_JAVA;
        else if (tag == Slots::GINGA_NCL_APPLICATION || tag == Slots::GINGA_NCL_LOCATION)
            application->m_iApplicationType = TYPE_NCL;
        switch (Slots::parse(*application, position, total, errorCode, limit)) {
        case Slots::Outcome::FAILED:
            delete application; // the descriptor has logged and stored its code
            return nullptr;
        case Slots::Outcome::PAST_BUFFER:
            return rejectLength(application, length, bytesLeft(position, limit) - kDescriptorHeader, errorCode);
        case Slots::Outcome::UNKNOWN:
            VURO_LOGW("%s: TApplication::parse: Unknown descriptor: 0x%02X. Ignored!", VURO_LOG_ORIGIN, tag);
            break;
        case Slots::Outcome::STORED:
        case Slots::Outcome::STUFFING:
            break;
        }
        stepWithin(position, limit, total);
        loopLength = static_cast<U16>(loopLength - total);
        remaining -= total;
        consumed += total;
    }
    if (itemLength)
        *itemLength = consumed;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return application;
}

// The parent's common descriptor stands in for a missing own one only when
// asked to and when a parent is linked.
template <class D>
D* TApplication::inheritable(D* own, D* (TAITTable::*parentGetter)() const, BOOL inherit, BOOL* inherited) const
{
    return inheritDescriptor(own, m_pParentAITTable, parentGetter, inherit, inherited);
}

TApplicationDescriptor* TApplication::getApplicationDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pApplicationDesc, &TAITTable::getApplicationDescriptor, inherit, inherited);
}

TApplicationNameDescriptor* TApplication::getApplicationNameDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pApplicationNameDesc, &TAITTable::getApplicationNameDescriptor, inherit, inherited);
}

TApplicationIconDescriptor* TApplication::getApplicationIconDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pApplicationIconDesc, &TAITTable::getApplicationIconDescriptor, inherit, inherited);
}

TExternalApplicationAuthorizationDescriptor* TApplication::getExternalApplicationAuthorizationDescriptor(
    BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pExternalAppAuthDesc, &TAITTable::getExternalApplicationAuthorizationDescriptor, inherit,
                       inherited);
}

TTransportProtocolDescriptor* TApplication::getTransportProtocolDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pTransportProtocolDesc, &TAITTable::getTransportProtocolDescriptor, inherit, inherited);
}

TIPSignalingDescriptor* TApplication::getIPSignalingDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pIPSignalingDesc, &TAITTable::getIPSignalingDescriptor, inherit, inherited);
}

TPrefetchDescriptor* TApplication::getPrefetchDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pPrefetchDesc, &TAITTable::getPrefetchDescriptor, inherit, inherited);
}

TDIILocationDescriptor* TApplication::getDIILocationDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pDIILocationDesc, &TAITTable::getDIILocationDescriptor, inherit, inherited);
}

TGingaApplicationDescriptor* TApplication::getGingaApplicationDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pGingaAppParamsDesc, &TAITTable::getGingaApplicationDescriptor, inherit, inherited);
}

TGingaApplicationLocationDescriptor* TApplication::getGingaApplicationLocationDescriptor(BOOL inherit,
                                                                                       BOOL* inherited) const
{
    return inheritable(m_pGingaAppLocationDesc, &TAITTable::getGingaApplicationLocationDescriptor, inherit,
                       inherited);
}

} // namespace Vuro
