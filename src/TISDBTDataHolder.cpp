#include "TISDBTDataHolder.h"

#include <cstring>

namespace Vuro {

TISDBTDataHolder::TISDBTDataHolder(U8* data, U32 length, BOOL allocate)
    : m_pData(data), m_iDataLength(length), m_bAllocated(allocate ? TRUE : FALSE)
{
    if (allocate && data) {
        m_pData = static_cast<U8*>(ParseArena::allocate(length));
        std::memcpy(m_pData, data, length);
    }
}

TISDBTDataHolder::~TISDBTDataHolder()
{
    if (m_bAllocated && m_pData) {
        ParseArena::release(m_pData);
        m_pData = nullptr;
    }
}

} // namespace Vuro
