#include "TProgramAssociation.h"

namespace Vuro {

TProgramAssociation::TProgramAssociation(U16 programNumber, U16 programMapPid)
    : m_iProgramNumber(programNumber), m_iProgramMapPid(programMapPid)
{
}

TProgramAssociation::~TProgramAssociation() = default;

} // namespace Vuro
