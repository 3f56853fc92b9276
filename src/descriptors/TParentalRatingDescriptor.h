#ifndef VURO_TPARENTAL_RATING_DESCRIPTOR_H
#define VURO_TPARENTAL_RATING_DESCRIPTOR_H

#include "../TISDBTItemList.h"
#include "TISDBTDescriptor.h"
#include "TParentalRatingDescriptorItem.h"

namespace Vuro {

/// parental_rating_descriptor (0x55): one rating per country, in arrival order.
class TParentalRatingDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x55;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 4;

    /// Age ratings (low nibble of the rating byte).
    static constexpr VURO_U8 PARENTAL_RATING_L = 1;
    static constexpr VURO_U8 PARENTAL_RATING_10 = 2;
    static constexpr VURO_U8 PARENTAL_RATING_12 = 3;
    static constexpr VURO_U8 PARENTAL_RATING_14 = 4;
    static constexpr VURO_U8 PARENTAL_RATING_16 = 5;
    static constexpr VURO_U8 PARENTAL_RATING_18 = 6;
    /// Content descriptions (high nibble of the rating byte).
    static constexpr VURO_U8 DESCRIPTION_DRUGS = 1;
    static constexpr VURO_U8 DESCRIPTION_VIOLENCE = 2;
    static constexpr VURO_U8 DESCRIPTION_VIOLENCE_DRUGS = 3;
    static constexpr VURO_U8 DESCRIPTION_SEX = 4;
    static constexpr VURO_U8 DESCRIPTION_SEX_DRUGS = 5;
    static constexpr VURO_U8 DESCRIPTION_VIOLENCE_SEX = 6;
    static constexpr VURO_U8 DESCRIPTION_VIOLENCE_SEX_DRUGS = 7;

    TParentalRatingDescriptor(U8* data, U32 length);
    virtual ~TParentalRatingDescriptor();

    /// *parsedLength receives the length of the last item (4), not the body
    /// length. A failed header check logs one more line of its own.
    static TParentalRatingDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TParentalRatingDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                            const U8* limit);

    U32 size() const { return m_pItems.size(); }
    /// Takes the address of the caller's item pointer and appends the item it
    /// refers to; the descriptor takes ownership. A null address is ignored.
    void add(TParentalRatingDescriptorItem** item);
    TParentalRatingDescriptorItem* get(U8 index) const { return m_pItems.get(index); }
    BOOL remove(U8 index) { return m_pItems.remove(index); }

protected:
    /// Scratch pointer the interface has always declared; never owned.
    TParentalRatingDescriptorItem* l_pItem;

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    TISDBTItemList<TParentalRatingDescriptorItem> m_pItems;
};

} // namespace Vuro

#endif
