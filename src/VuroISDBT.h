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
#include "descriptors/TAudioComponentDescriptor.h"
#include "descriptors/TBouquetNameDescriptor.h"
#include "descriptors/TComponentDescriptor.h"
#include "descriptors/TContentDescriptor.h"
#include "descriptors/TCountryAvailabilityDescriptor.h"
#include "descriptors/TMosaicDescriptor.h"
#include "descriptors/TMosaicDescriptorCell.h"
#include "descriptors/TNVODReferenceDescriptor.h"
#include "descriptors/TNVODReferenceDescriptorItem.h"
#include "descriptors/TParentalRatingDescriptor.h"
#include "descriptors/TParentalRatingDescriptorItem.h"
#include "descriptors/TServiceDescriptor.h"
#include "descriptors/TShortEventDescriptor.h"
#include "descriptors/TTimeShiftedServiceDescriptor.h"
// (end of service and event descriptors)

// Stream and content-protection descriptors
#include "descriptors/TAACDescriptor.h"
#include "descriptors/TAVCTimingAndHRDDescriptor.h"
#include "descriptors/TAVCVideoDescriptor.h"
#include "descriptors/TCAIdentifierDescriptor.h"
#include "descriptors/TCarouselCompatibleCompositeDescriptor.h"
#include "descriptors/TCarouselIdentifierDescriptor.h"
#include "descriptors/TConditionalPlaybackDescriptor.h"
#include "descriptors/TContentAvailabilityDescriptor.h"
#include "descriptors/TCopyrightDescriptor.h"
#include "descriptors/TDataComponentDescriptor.h"
#include "descriptors/TDigitalCopyControlDescriptor.h"
#include "descriptors/TDigitalCopyControlDescriptorItem.h"
#include "descriptors/THierarchicalTransmissionDescriptor.h"
#include "descriptors/TISO639LanguageDescriptor.h"
#include "descriptors/TLogoTransmissionDescriptor.h"
#include "descriptors/TStreamIdentifierDescriptor.h"
#include "descriptors/TTargetRegionDescriptor.h"
#include "descriptors/TVideoDecodeControlDescriptor.h"
#include "descriptors/TVideoEncodeFormat.h"
// (end of stream and content-protection descriptors)

// Program association table
#include "pat/TPATTable.h"
#include "pat/TProgramAssociation.h"

// Program map table
#include "pmt/TPMTTable.h"
#include "pmt/TProgramMap.h"
// (end of program map table)

// Network information table
#include "nit/TNITTable.h"
#include "nit/TTransportStreamInfo.h"
// (end of network information table)

// Service description table
#include "sdt/TSDTTable.h"
#include "sdt/TServiceDescription.h"
// (end of service description table)

// Time offset table
#include "descriptors/TLocalTimeOffsetDescriptor.h"
#include "descriptors/TLocalTimeOffsetDescriptorItem.h"
#include "tot/TTOTTable.h"
// (end of time offset table)

// Software download trigger table
#include "descriptors/TAppPortalUpdate.h"
#include "descriptors/TCompatibilityDescriptor.h"
#include "descriptors/TCompatibilityDescriptorItem.h"
#include "descriptors/TCompatibilityDescriptorSubItem.h"
#include "descriptors/TDownloadContentDescriptor.h"
#include "descriptors/TDownloadContentDescriptorItem.h"
#include "sdtt/TDownloadContent.h"
#include "sdtt/TSDTTTable.h"
#include "sdtt/TScheduleInfo.h"
// (end of software download trigger table)
// Datacaster carousel entry
#include "dct/TDatacasterCarousel.h"

// DSM-CC sections and their stream descriptors
#include "DSMCCSection/TDDBTable.h"
#include "DSMCCSection/TDSMCCSectionTable.h"
#include "DSMCCSection/TDsiDiiTable.h"
#include "descriptors/TGeneralEventDescriptor.h"
#include "descriptors/TNPTEndpointDescriptor.h"
#include "descriptors/TNPTReferenceDescriptor.h"
#include "descriptors/TStreamEventDescriptor.h"
#include "descriptors/TStreamModeDescriptor.h"
// (end of DSM-CC sections)

// Sign-language descriptors
#include "descriptors/TLCMDescriptor.h"
#include "descriptors/TLDMDescriptor.h"
// Application information table
#include "descriptors/TApplicationDescriptor.h"
#include "descriptors/TApplicationDescriptorProfile.h"
#include "descriptors/TApplicationIconDescriptor.h"
#include "descriptors/TApplicationNameDescriptor.h"
#include "descriptors/TApplicationNameDescriptorItem.h"
#include "descriptors/TDIILocationDescriptor.h"
#include "descriptors/TDIILocationDescriptorItem.h"
#include "descriptors/TExternalApplicationAuthorizationDescriptor.h"
#include "descriptors/TExternalApplicationAuthorizationDescriptorItem.h"
#include "descriptors/TGingaApplicationDescriptor.h"
#include "descriptors/TGingaApplicationLocationDescriptor.h"
#include "descriptors/TGingaJavaApplicationDescriptor.h"
#include "descriptors/TGingaJavaApplicationLocationDescriptor.h"
#include "descriptors/TGingaNCLApplicationDescriptor.h"
#include "descriptors/TGingaNCLApplicationLocationDescriptor.h"
#include "descriptors/TIPSignalingDescriptor.h"
#include "descriptors/TPrefetchDescriptor.h"
#include "descriptors/TPrefetchDescriptorItem.h"
#include "descriptors/TTransportProtocolCarouselDescriptor.h"
#include "descriptors/TTransportProtocolDescriptor.h"
#include "descriptors/TTransportProtocolDescriptorDC.h"
#include "descriptors/TTransportProtocolDescriptorIC.h"
#include "descriptors/TTransportProtocolDescriptorIP.h"
#include "descriptors/TTransportProtocolDescriptorOC.h"
#include "descriptors/TTransportProtocolDescriptorPC.h"
#include "ait/TAITTable.h"
#include "ait/TApplication.h"
#include "ait/TApplicationIdentifier.h"
// (end of application information table)
// Event information table and programme guide record
#include "eit/EpgItem.h"
#include "eit/TEITTable.h"
#include "eit/TEventItemDescriptor.h"
// (end of event information table)

#endif
