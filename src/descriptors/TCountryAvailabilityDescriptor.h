#ifndef VURO_TCOUNTRY_AVAILABILITY_DESCRIPTOR_H
#define VURO_TCOUNTRY_AVAILABILITY_DESCRIPTOR_H

#include <vector>

#include "TISDBTDescriptor.h"

namespace Vuro {

/// country_availability_descriptor (0x49): country_availability_flag (1),
/// reserved (7), then 24-bit country codes (ISO 3166 letters) back to back.
class TCountryAvailabilityDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x49;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 4;

    TCountryAvailabilityDescriptor(U8* data, U32 length);
    virtual ~TCountryAvailabilityDescriptor();

    /// *parsedLength always receives 0; callers size the descriptor from its
    /// header. A country loop that does not end on a whole code is refused
    /// (ERROR_INVALID_DESCRIPTOR_LENGTH) at the partial code.
    static TCountryAvailabilityDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                 U16* errorCode);
    static TCountryAvailabilityDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                 U16* errorCode, const U8* limit);

    U8 getCountryAvailabilityFlag() const { return m_iCountryAvailabilityFlag; }
    U32 size() const { return static_cast<U32>(m_pItems.size()); }
    /// Country code as (b0 << 16) | (b1 << 8) | b2; 0 past the end.
    U32 get(U32 index) const { return index < m_pItems.size() ? m_pItems[index] : 0; }
    void add(U32 countryCode) { m_pItems.push_back(countryCode); }
    /// FALSE when there is no code at index.
    BOOL remove(U32 index);

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U8 m_iCountryAvailabilityFlag;
    std::vector<U32> m_pItems;
};

} // namespace Vuro

#endif
