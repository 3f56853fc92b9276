#ifndef VURO_TISDBT_TABLE_H
#define VURO_TISDBT_TABLE_H

#include <list>

#include "TISDBTDataHolder.h"

namespace Vuro {

class TISDBTDescriptor;

/// Base of every table: the short section header (table_id, section_length),
/// the table's type and expected table_id, a private copy of the section, and
/// the static table-parse pattern the table classes share.
class TISDBTTable : public TISDBTDataHolder {
public:
    /// Upper 16 bits: the fixed PID (0xFFFF when signalled elsewhere; the table_id
    /// for the DSM-CC types); lower 16 bits: a table_id where the type pins one.
    enum Type : VURO_U32 {
        PAT = 0x00000000u,
        CAT = 0x00010000u,
        NIT = 0x00100000u,
        SDT = 0x00110000u,
        HEIT = 0x00120000u,
        HEIT_PRESENT = 0x0012004Eu,
        HEIT_FOLLOWING = 0x0012004Fu,
        TOT = 0x00140000u,
        SDTT = 0x00230000u,
        BIT = 0x00240000u,
        MEIT = 0x00260000u,
        DSI_DII = 0x003B0000u,
        DDB = 0x003C0000u,
        DSMCC_SECTION = 0x003D0000u,
        PMT = 0xFFFF0002u,
        AIT = 0xFFFF0074u,
        DCT = 0xFFFF0099u
    };

    /// Error codes written through the optional errorCode out-parameters of
    /// every parse in the library.
    ///@{
    static constexpr VURO_U16 ERROR_OK = 0;
    static constexpr VURO_U16 ERROR_INCOMPATIBLE_TABLE_TYPE = 0x0A00;
    static constexpr VURO_U16 ERROR_TABLE_NOT_UPDATED = 0x0A01;
    static constexpr VURO_U16 ERROR_INVALID_DATA = 0x0A02;
    static constexpr VURO_U16 ERROR_INVALID_DATA_LENGTH = 0x0A03;
    static constexpr VURO_U16 ERROR_INVALID_TABLE_ID = 0x0A04;
    static constexpr VURO_U16 ERROR_INVALID_SECTION_LEN_TOO_BIG = 0x0A05;
    static constexpr VURO_U16 ERROR_INVALID_CRC32 = 0x0A06; ///< no parse verifies the CRC_32, so none sets it
    static constexpr VURO_U16 ERROR_INVALID_DESCRIPTOR_TAG = 0x0A07;
    static constexpr VURO_U16 ERROR_INVALID_DESCRIPTOR_LENGTH = 0x0A08;
    static constexpr VURO_U16 ERROR_INVALID_STRING = 0x0A09;
    static constexpr VURO_U16 ERROR_INVALID_ITEM = 0x0A0A;
    ///@}

    /// Hierarchical layers carrying a service: none, A, A+B, A+B+C.
    static constexpr VURO_U8 TX_TYPE_LAYERINVALID = 0;
    static constexpr VURO_U8 TX_TYPE_LAYERA = 1;
    static constexpr VURO_U8 TX_TYPE_LAYERAB = 2;
    static constexpr VURO_U8 TX_TYPE_LAYERABC = 3;

    /// table_id plus the 16 bits holding section_length; the trailing CRC_32.
    static constexpr VURO_U32 COMMON_HEADER_LENGTH = 3;
    static constexpr VURO_U32 CRC_LENGTH = 4;

    TISDBTTable(Type type, U32 minimumDataLength, U16 expectedTableId, U8* data, U32 length);
    virtual ~TISDBTTable();

    /// The table's descriptor with that tag, or null; tables without
    /// section-level descriptors keep these defaults.
    virtual TISDBTDescriptor* getDescriptor(U8 tag) const;
    virtual std::list<U8> getDescriptorTags() const;

    /// Checks data, minimum length, table_id and section_length against the
    /// data; on success *sectionLength is section_length minus the CRC_32.
    /// Writes a code on failure only. The CRC_32 is never verified, whatever
    /// checkCRC32 says; callers wanting it use ISDBTUtils::getSectionCRC32.
    virtual BOOL parseCommonHeader(U8* sectionData, U32 dataLength, BOOL checkCRC32, U16* errorCode,
                                   U16* sectionLength, TISDBTTable* previous);

    Type getType() const { return m_eMyType; }

    /// Accepted for compatibility; logging is unconditional and parsing unaffected.
    static void setDebug(BOOL debug, BOOL recursive);

protected:
    /// What a table body reports back to the parse pattern.
    enum BodyResult {
        BODY_FAILED,         ///< the body stored its code (and logged); the table is discarded
        BODY_PARSED,         ///< success: ERROR_OK is stored
        BODY_PARSED_KEEP_CODE ///< success that leaves the caller's code as it was
    };

    /// The static table-parse pattern: allocate T (copying the section), run
    /// the virtual header check, then T::parseBody over the section; on any
    /// failure delete the half-built table and return null. The parse's
    /// objects share a few heap blocks (TISDBTParseScope).
    /// T::parseBody(U8* sectionData, U32 dataLength, U16 bodyLength,
    /// BOOL parseDescriptors, U16* errorCode) gets the caller's buffer and the
    /// body length from the header check (bytes up to the CRC_32, 16-bit); the
    /// table reads either that buffer or its own copy (m_pData), both dataLength
    /// bytes long, and never past their end.
    template <class T>
    static T* parseTable(U8* sectionData, U32 dataLength, BOOL checkCRC32, BOOL parseDescriptors, U16* errorCode,
                         T* previous)
    {
        TISDBTParseScope scope(kParseArenaBase + dataLength * kParseArenaPerByte);
        T* table = new T(sectionData, dataLength);
        U16 bodyLength = 0;
        if (!table->parseCommonHeader(sectionData, dataLength, checkCRC32, errorCode, &bodyLength, previous)) {
            delete table;
            return nullptr;
        }
        switch (table->parseBody(sectionData, dataLength, bodyLength, parseDescriptors, errorCode)) {
        case BODY_FAILED:
            delete table;
            return nullptr;
        case BODY_PARSED:
            ISDBTUtils::setErrorCode(errorCode, ERROR_OK);
            break;
        case BODY_PARSED_KEEP_CODE:
            break;
        }
        return table;
    }

    /// Bounded read for table bodies: TRUE when need bytes at position lie
    /// before limit (the end of the section buffer). Otherwise the section ends
    /// inside a field the body has to read: logs the table length line with the
    /// bytes left and the bytes needed, stores ERROR_INVALID_DATA_LENGTH and
    /// returns FALSE.
    static BOOL requireBytes(const U8* position, const U8* limit, U32 need, U16* errorCode)
    {
        if (position <= limit && static_cast<std::size_t>(limit - position) >= need)
            return TRUE;
        return refuseLength(position, limit, need, errorCode);
    }
    /// The failing side of requireBytes: logs, stores the code, FALSE.
    static BOOL refuseLength(const U8* position, const U8* limit, U32 need, U16* errorCode);

    /// First arena block of a parse: room for the table, its section copy and
    /// the objects a section of typical density yields.
    static constexpr std::size_t kParseArenaBase = 512;
    static constexpr std::size_t kParseArenaPerByte = 16;

    Type m_eMyType;
    VURO_U32 m_iMinimumDataLength;
    VURO_U16 m_iExpectedTableId;
};

} // namespace Vuro

#endif
