#ifndef VURO_TGINGA_APPLICATION_DESCRIPTOR_H
#define VURO_TGINGA_APPLICATION_DESCRIPTOR_H

#include <list>
#include <string>

#include "TISDBTDescriptor.h"

namespace Vuro {

/// Ginga application (parameter) descriptor: parameters to the end of the
/// descriptor, each parameter_length (8) and that many bytes. Built as its
/// Ginga-J (0x03) or Ginga-NCL (0x06) form, which differ only in tag.
class TGingaApplicationDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    virtual ~TGingaApplicationDescriptor();

    /// Reads parameters from data (the body) while bytes remain.
    /// *parsedLength (when given) receives the bytes read.
    virtual BOOL parseData(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);

    U32 size() const { return static_cast<U32>(m_pItems.size()); }
    /// The parameter at index (a copy); empty at or beyond size().
    std::string get(U32 index) const;
    void add(std::string parameter) { m_pItems.push_back(parameter); }
    /// FALSE at or beyond size().
    BOOL remove(U32 index);

protected:
    TGingaApplicationDescriptor(U8 tag, U8* data, U32 length);
    /// A copy of the parameters under the given tag, without raw bytes.
    TGingaApplicationDescriptor(U8 tag, const TGingaApplicationDescriptor* source);

    /// The descriptor pattern's body: parseData over the body bytes.
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

private:
    // parseData reading nothing at or beyond limit (a parameter that would
    // pass it fails with ERROR_INVALID_DESCRIPTOR_LENGTH; the class has no
    // length line).
    BOOL parseParameters(U8* sectionData, U32 dataLength, const U8* limit, U32* parsedLength, U16* errorCode);

    std::list<std::string> m_pItems;
};

} // namespace Vuro

#endif
