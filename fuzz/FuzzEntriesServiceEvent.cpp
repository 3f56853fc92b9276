#include "FuzzEntries.h"

namespace VuroFuzz {

using namespace Vuro;

std::vector<Entry> serviceEventEntries()
{
    return {
        {"TShortEventDescriptor", descriptor<TShortEventDescriptor>},
        {"TShortEventDescriptor/within", descriptorWithin<TShortEventDescriptor>},
        {"TServiceDescriptor", descriptor<TServiceDescriptor>},
        {"TServiceDescriptor/within", descriptorWithin<TServiceDescriptor>},
        {"TBouquetNameDescriptor", descriptor<TBouquetNameDescriptor>},
        {"TBouquetNameDescriptor/within", descriptorWithin<TBouquetNameDescriptor>},
        {"TCountryAvailabilityDescriptor", descriptor<TCountryAvailabilityDescriptor>},
        {"TCountryAvailabilityDescriptor/within", descriptorWithin<TCountryAvailabilityDescriptor>},
        {"TNVODReferenceDescriptor", descriptor<TNVODReferenceDescriptor>},
        {"TNVODReferenceDescriptor/within", descriptorWithin<TNVODReferenceDescriptor>},
        {"TNVODReferenceDescriptorItem", item<TNVODReferenceDescriptorItem>},
        {"TTimeShiftedServiceDescriptor", descriptor<TTimeShiftedServiceDescriptor>},
        {"TTimeShiftedServiceDescriptor/within", descriptorWithin<TTimeShiftedServiceDescriptor>},
        {"TMosaicDescriptor", descriptor<TMosaicDescriptor>},
        {"TMosaicDescriptor/within", descriptorWithin<TMosaicDescriptor>},
        {"TMosaicDescriptorCell", item<TMosaicDescriptorCell>},
        {"TParentalRatingDescriptor", descriptor<TParentalRatingDescriptor>},
        {"TParentalRatingDescriptor/within", descriptorWithin<TParentalRatingDescriptor>},
        {"TParentalRatingDescriptorItem", item<TParentalRatingDescriptorItem>},
        {"TComponentDescriptor", descriptor<TComponentDescriptor>},
        {"TComponentDescriptor/within", descriptorWithin<TComponentDescriptor>},
        {"TAudioComponentDescriptor", descriptor<TAudioComponentDescriptor>},
        {"TAudioComponentDescriptor/within", descriptorWithin<TAudioComponentDescriptor>},
        {"TContentDescriptor", descriptor<TContentDescriptor>},
        {"TContentDescriptor/within", descriptorWithin<TContentDescriptor>},
    };
}

} // namespace VuroFuzz
