// Every public header of the ISDB-T section library.
#ifndef VURO_ISDBT_H
#define VURO_ISDBT_H

#include "utils/ParserUtils.h"
#include "utils/VuroISDBTUtils.h"

#include "TISDBTDataHolder.h"
#include "TISDBTItemList.h"
#include "TISDBTItemMap.h"
#include "TISDBTTable.h"
#include "TISDBTVersionedTable.h"

#include "descriptors/TISDBTDescriptor.h"
#include "descriptors/TServiceListDescriptor.h"
#include "descriptors/TServiceListDescriptorItem.h"

#include "pat/TPATTable.h"
#include "pat/TProgramAssociation.h"

#endif
