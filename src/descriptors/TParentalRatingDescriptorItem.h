#ifndef VURO_TPARENTAL_RATING_DESCRIPTOR_ITEM_H
#define VURO_TPARENTAL_RATING_DESCRIPTOR_ITEM_H

#include <string>

#include "../TISDBTParseArena.h"
#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// One country's rating in a parental rating descriptor: country_code (24,
/// three raw letters), then the rating byte, whose high nibble names the
/// content (TParentalRatingDescriptor::DESCRIPTION_*) and whose low nibble the
/// age (TParentalRatingDescriptor::PARENTAL_RATING_*).
class TParentalRatingDescriptorItem : public TISDBTArenaObject {
public:
    TParentalRatingDescriptorItem();
    virtual ~TParentalRatingDescriptorItem();

    /// Needs 4 bytes; *itemLength is 4.
    static TParentalRatingDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode);
    static TParentalRatingDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode,
                                                const U8* limit);

    std::string getCountryCode() const { return m_sCountryCode; }
    U8 getRating() const { return m_iRating; }
    U8 getRatingContent() const { return m_iRatingContent; }

private:
    std::string m_sCountryCode;
    VURO_U8 m_iRating;
    VURO_U8 m_iRatingContent;
};

} // namespace Vuro

#endif
