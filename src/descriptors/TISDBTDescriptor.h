#ifndef VURO_TISDBT_DESCRIPTOR_H
#define VURO_TISDBT_DESCRIPTOR_H

#include "../TISDBTDataHolder.h"
#include "../TISDBTTable.h"

namespace Vuro {

/// Base of every descriptor: the tag, the borrowed bytes (tag and length bytes
/// included), the shared check of the two-byte header, and the two patterns
/// every descriptor class is built on.
///
/// Bounded reads: besides the four-argument parse every descriptor and item
/// class offers an overload taking `limit`, the end of the buffer handed to the
/// outermost parse (a table's section). Records that the broadcast syntax lets
/// reach past their own length are read up to that limit and no further; the
/// four-argument form uses the end of its own data as the limit.
class TISDBTDescriptor : public TISDBTDataHolder {
public:
    /// descriptor_tag and descriptor_length.
    static constexpr VURO_U32 COMMON_HEADER_LENGTH = 2;

    TISDBTDescriptor(U8 tag, U8* data, U32 length);
    virtual ~TISDBTDescriptor();

    U8 getDescriptorTag() const { return m_iDescriptorTag; }

    /// Five checks, in order: data null; (minimum + 2), kept to 8 bits, over
    /// dataLength; tag; descriptor_length + 2 over dataLength; descriptor_length
    /// under the minimum. The first failure logs its line and stores its code;
    /// success stores ERROR_OK.
    static BOOL parseCommonHeader(U8* sectionData, U32 dataLength, U16* errorCode, U8 minimumDescriptorLength,
                                  U16 expectedDescriptorTag);

    /// Descriptor-parse pattern. D supplies DESCRIPTOR_TAG, MINIMUM_DESCRIPTOR_LENGTH,
    /// a constructor (U8* data, U32 length) that zeroes its fields, and
    ///   BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
    /// (reachable by declaring TISDBTDescriptor a friend), which decodes from
    /// m_pData + 2 and on failure logs its own line and stores its own code.
    /// The header check runs first; a failed body deletes the object. On
    /// success *parsedLength (when given) receives what the body reported and
    /// ERROR_OK is stored. A null limit means sectionData + dataLength.
    template <class D>
    static D* parseDescriptor(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                              const U8* limit)
    {
        // A descriptor whose tag and length bytes would already lie past the
        // outer buffer is checked on the bytes that are there, so the header
        // check refuses it for its length without reading on.
        U32 headerData = dataLength;
        if (limit && sectionData && dataLength > 0) {
            const U32 available = limit > sectionData ? static_cast<U32>(limit - sectionData) : 0;
            if (available < COMMON_HEADER_LENGTH && available < dataLength)
                headerData = available;
        }
        if (!parseCommonHeader(sectionData, headerData, errorCode, static_cast<U8>(D::MINIMUM_DESCRIPTOR_LENGTH),
                               D::DESCRIPTOR_TAG))
            return nullptr;
        return parseCheckedDescriptor<D>(sectionData, dataLength, parsedLength, errorCode, limit);
    }

    /// The pattern after a passed header check, for classes that act between
    /// the check and the body (an extra failure line, an early length report)
    /// or make no header check at all.
    template <class D>
    static D* parseCheckedDescriptor(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                     const U8* limit)
    {
        D* descriptor = new D(sectionData, dataLength);
        U32 parsed = 0;
        if (!descriptor->parseBody(dataLength, limit ? limit : sectionData + dataLength, parsed, errorCode)) {
            delete descriptor;
            return nullptr;
        }
        if (parsedLength)
            *parsedLength = parsed;
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
        return descriptor;
    }

    /// Parses the descriptor of class D at data (length = descriptor_length + 2,
    /// lying before limit) into an owner's slot. The later of two descriptors
    /// with one tag wins the slot; the object it displaces is freed. On failure
    /// the slot is untouched and the descriptor's code stays in errorCode.
    template <class D>
    static BOOL parseInto(D*& slot, U8* data, U32 length, U16* errorCode, const U8* limit)
    {
        D* parsed = D::parse(data, length, nullptr, errorCode, limit);
        if (!parsed)
            return FALSE;
        delete slot;
        slot = parsed;
        return TRUE;
    }

protected:
    /// Bounded read for descriptor bodies: TRUE when the dataLength bytes the
    /// descriptor was handed (header included) lie before limit. Otherwise the
    /// buffer ends inside the descriptor: logs the header check's length line
    /// (4) with the bytes needed and the bytes there, stores
    /// ERROR_INVALID_DESCRIPTOR_LENGTH and returns FALSE.
    BOOL requireData(U32 dataLength, const U8* limit, U16* errorCode) const;

    /// Item-list pattern: the one loop over the records of an item-list body.
    /// While more(remaining) holds, parses an I at position with dataLength =
    /// remaining (I::parse(U8*, U32, U32* itemLength, U16*, const U8* limit))
    /// and hands it to store(item, itemLength); then advances position and
    /// subtracts the item length from remaining. remaining is unsigned 32-bit:
    /// an item longer than what remains wraps it, and the loop then goes on
    /// until an item would read past limit and fails there. Every item consumes
    /// at least one byte, so the loop always ends. lastItemLength receives the
    /// length of the last item parsed (0 for none). Returns FALSE when an item
    /// fails (the item has logged and stored its code); the descriptor then logs
    /// its own line and stores its own code.
    template <class I, class More, class Store>
    static BOOL parseItems(U8*& position, U32& remaining, const U8* limit, U32& lastItemLength, U16* errorCode,
                           More more, Store store)
    {
        lastItemLength = 0;
        while (more(remaining)) {
            U32 itemLength = 0;
            I* item = I::parse(position, remaining, &itemLength, errorCode, limit);
            if (!item)
                return FALSE;
            store(item, itemLength);
            lastItemLength = itemLength;
            position += itemLength;
            remaining -= itemLength;
        }
        return TRUE;
    }

    /// The common case: records back to back until remaining is exactly zero.
    template <class I, class Store>
    static BOOL parseItemsToEnd(U8*& position, U32& remaining, const U8* limit, U32& lastItemLength,
                                U16* errorCode, Store store)
    {
        return parseItems<I>(position, remaining, limit, lastItemLength, errorCode,
                             [](U32 left) { return left != 0; }, store);
    }

    VURO_U8 m_iDescriptorTag;
};

} // namespace Vuro

#endif
