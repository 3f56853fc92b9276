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

// Network and transport-stream descriptors
#include "descriptors/TEmergencyInformationDescriptor.h"
#include "descriptors/TEmergencyInformationDescriptorItem.h"
#include "descriptors/TLinkageDescriptor.h"
#include "descriptors/TNetworkNameDescriptor.h"
#include "descriptors/TPartialReceptionDescriptor.h"
#include "descriptors/TServiceListDescriptor.h"
#include "descriptors/TServiceListDescriptorItem.h"
#include "descriptors/TSystemManagementDescriptor.h"
#include "descriptors/TTSInformationDescriptor.h"
#include "descriptors/TTSInformationDescriptorItem.h"
#include "descriptors/TTerrestrialDeliverySystemDescriptor.h"
// (end of network and transport-stream descriptors)

// Service and event descriptors
// (end of service and event descriptors)

// Stream and content-protection descriptors
// (end of stream and content-protection descriptors)

// Program association table
#include "pat/TPATTable.h"
#include "pat/TProgramAssociation.h"

// Program map table
// (end of program map table)

// Network information table
#include "nit/TNITTable.h"
#include "nit/TTransportStreamInfo.h"
// (end of network information table)

// Service description table
// (end of service description table)

// Time offset table
// (end of time offset table)

#endif
