#ifndef VURO_TPROGRAM_ASSOCIATION_H
#define VURO_TPROGRAM_ASSOCIATION_H

#include "../TISDBTParseArena.h"
#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// One program of a PAT: program_number and its program map PID.
class TProgramAssociation : public TISDBTArenaObject {
public:
    TProgramAssociation(U16 programNumber, U16 programMapPid);
    virtual ~TProgramAssociation();

    U16 getProgramNumber() const { return m_iProgramNumber; }
    U16 getProgramMapPid() const { return m_iProgramMapPid; }

private:
    VURO_U16 m_iProgramNumber;
    VURO_U16 m_iProgramMapPid;
};

} // namespace Vuro

#endif
