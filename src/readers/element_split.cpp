// The parts of an element.
#include "readers/extractors.h"

namespace vantro {

namespace {

constexpr Field detailField{Column{18}};

// Columns inside an element's text, which begins with its code: "FFN XX 1234567", "SR FQTVXX 1234567-TEXT".
constexpr Column flyerCarrierColumn{5};
constexpr Column flyerAccountColumn{8};
constexpr Column requestCodeColumn{5};
constexpr Column starredCodeColumn{6};
constexpr Width requestCodeWidth{4};
constexpr Column requestCarrierColumn{9};
constexpr Column requestAccountColumn{12};
constexpr Width carrierWidth{2};
constexpr TextView flyerGap = u"    ";
constexpr TextView flyerRequest = u"FQTV";

/// The kind of a transferable element, in column 1. A continuation line that is read as an element of its own has none.
char16_t kindOf(TextView line) {
    const char16_t first = line.front();  // a line with a code is not empty
    return first == u'S' || first == u'A' ? first : u'\0';
}

// Four blanks end the text of a frequent-flyer line, also the stored one.
void splitFrequentFlyer(Element& element) {
    if (const Column gap = find(element.text, flyerGap); gap > Column{0}) {
        element.text = trimmed(left(element.text, Width{gap.value}));
    }
    element.airline = mid(element.text, flyerCarrierColumn, carrierWidth);
    element.frequentFlyerNumber = trimmed(mid(element.text, flyerAccountColumn));
}

void splitServiceRequest(Element& element) {
    const TextView text = element.text;
    element.code = mid(text, requestCodeColumn, requestCodeWidth);
    if (element.code.starts_with(u'*')) element.code = mid(text, starredCodeColumn, requestCodeWidth);
    if (const Column dash = find(text, u'-'); dash > Column{0}) element.freeText = trimmed(mid(text, dash + 1));
    if (element.code == flyerRequest) {
        // Meant: carrier and account are read from the same columns with and without the star.
        element.airline = mid(text, requestCarrierColumn, carrierWidth);
        element.frequentFlyerNumber = trimmed(mid(text, requestAccountColumn));
    }
}

}  // namespace

void splitFurther(const FoundElement& found, Element& element) {
    element.kind = kindOf(found.line());
    const TransferableFamily& row = transferableFamilies[indexOf(found.family()) - firstTransferable];
    switch (row.split) {  // Not covered: every split has its case
        case Split::None: break;
        case Split::FrequentFlyer: splitFrequentFlyer(element); break;
        case Split::ServiceRequest: splitServiceRequest(element); break;
        case Split::RemarkDetail: element.freeText = cut(found.line(), detailField); break;
    }
}

}  // namespace vantro
