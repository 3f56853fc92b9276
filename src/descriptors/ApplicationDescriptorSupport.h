// Internal to the library (not installed): helpers the application
// signalling descriptors share.
#ifndef VURO_APPLICATION_DESCRIPTOR_SUPPORT_H
#define VURO_APPLICATION_DESCRIPTOR_SUPPORT_H

#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

// Index access into a list: walks index steps from the first element.
// Positions at or beyond the count give the list's end, so a getter can
// answer empty and a remove FALSE instead of running past it.
template <class List>
typename List::const_iterator walkList(const List& list, U32 index)
{
    if (index >= list.size())
        return list.end();
    typename List::const_iterator it = list.begin();
    while (index-- > 0)
        ++it;
    return it;
}

} // namespace Vuro

#endif
