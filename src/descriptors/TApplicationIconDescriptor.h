#ifndef VURO_TAPPLICATION_ICON_DESCRIPTOR_H
#define VURO_TAPPLICATION_ICON_DESCRIPTOR_H

#include <string>

#include "TISDBTDescriptor.h"

namespace Vuro {

/// application_icons_descriptor (0x0B): icon_locator_length (8), the icon
/// locator, icon_flags (16).
class TApplicationIconDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x0B;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    /// icon_flags bits: the icon sizes and aspect ratios offered.
    static constexpr VURO_U16 FLAG_32x32_SQUARE = 0x0001;
    static constexpr VURO_U16 FLAG_32x32_4x3 = 0x0002;
    static constexpr VURO_U16 FLAG_32x32_16x9 = 0x0004;
    static constexpr VURO_U16 FLAG_64x64_SQUARE = 0x0008;
    static constexpr VURO_U16 FLAG_64x64_4x3 = 0x0010;
    static constexpr VURO_U16 FLAG_64x64_16x9 = 0x0020;
    static constexpr VURO_U16 FLAG_128x128_SQUARE = 0x0040;
    static constexpr VURO_U16 FLAG_128x128_4x3 = 0x0080;
    static constexpr VURO_U16 FLAG_128x128_16x9 = 0x0100;

    TApplicationIconDescriptor(U8* data, U32 length);
    TApplicationIconDescriptor(std::string iconLocator, U16 iconFlags);
    explicit TApplicationIconDescriptor(TApplicationIconDescriptor* source);
    virtual ~TApplicationIconDescriptor();

    /// *parsedLength receives dataLength kept to 8 bits. The flags are read
    /// right after the locator, whatever the descriptor length says.
    static TApplicationIconDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TApplicationIconDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                             const U8* limit);

    std::string getIconLocator() const { return m_sIconLocator; }
    /// All 16 bits, the reserved ones included.
    U16 getIconFlags() const { return m_iIconFlags; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    std::string m_sIconLocator;
    VURO_U16 m_iIconFlags;
};

} // namespace Vuro

#endif
