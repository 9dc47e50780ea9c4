// All keys of the collections. A key's spelling determines the C++ type of its value, so that reading a text as a
// boolean does not compile.
#pragma once

#include "vantro/collection.h"
#include "vantro/text.h"

#include <cstdint>
#include <type_traits>

namespace vantro {

template <class T>
struct Key {
    TextView name;

    consteval explicit Key(TextView spelling) : name(spelling) {
        if (!fits(spelling)) throw "the key's prefix does not fit its type";
    }

private:
    static consteval bool fits(TextView spelling) {
        if constexpr (std::is_same_v<T, bool>) return spelling.starts_with(u"bln");
        if constexpr (std::is_same_v<T, TextList>) {
            return spelling.ends_with(u"()") || spelling.ends_with(u"Array");
        }
        if constexpr (std::is_same_v<T, std::int16_t>) return spelling.starts_with(u"int");
        // "intKeyArraySize" is read as text, because an empty one is tested for before it is converted.
        return (spelling.starts_with(u"str") && !spelling.ends_with(u"()")) || spelling == u"intKeyArraySize";
    }
};

namespace key {

// Texts
inline constexpr Key<Text> intKeyArraySize{u"intKeyArraySize"};
inline constexpr Key<Text> strCommand{u"strCommand"};
inline constexpr Key<Text> strKeyAirline{u"strKeyAirline"};
inline constexpr Key<Text> strKeyCode{u"strKeyCode"};
inline constexpr Key<Text> strKeyCoNames{u"strKeyCoNames"};
inline constexpr Key<Text> strKeyCompany{u"strKeyCompany"};
inline constexpr Key<Text> strKeyElement{u"strKeyElement"};
inline constexpr Key<Text> strKeyElementNr{u"strKeyElementNr"};
inline constexpr Key<Text> strKeyElements{u"strKeyElements"};
inline constexpr Key<Text> strKeyErrorString{u"strKeyErrorString"};
inline constexpr Key<Text> strKeyFFNbr{u"strKeyFFNbr"};
inline constexpr Key<Text> strKeyFreeText{u"strKeyFreeText"};
inline constexpr Key<Text> strKeyIndex{u"strKeyIndex"};
inline constexpr Key<Text> strKeyIndicator{u"strKeyIndicator"};
inline constexpr Key<Text> strKeyItemNr{u"strKeyItemNr"};
inline constexpr Key<Text> strKeyLastPNRTransDate{u"strKeyLastPNRTransDate"};
inline constexpr Key<Text> strKeyName{u"strKeyName"};
inline constexpr Key<Text> strKeyOfficeID{u"strKeyOfficeID"};
inline constexpr Key<Text> strKeyPasAsso{u"strKeyPasAsso"};
inline constexpr Key<Text> strKeyPrefix{u"strKeyPrefix"};
inline constexpr Key<Text> strKeyProfileCreationDate{u"strKeyProfileCreationDate"};
inline constexpr Key<Text> strKeyRecLoc{u"strKeyRecLoc"};
inline constexpr Key<Text> strKeyRecLocPos{u"strKeyRecLocPos"};
inline constexpr Key<Text> strKeySegAsso{u"strKeySegAsso"};
inline constexpr Key<Text> strSearchQualifier{u"strSearchQualifier"};
inline constexpr Key<Text> strSearchString{u"strSearchString"};

// Lists of texts
inline constexpr Key<TextList> strKeyElArray{u"strKeyElArray()"};
inline constexpr Key<TextList> strKeyElement_list{u"strKeyElement()"};
inline constexpr Key<TextList> strKeyElementNr_list{u"strKeyElementNr()"};
inline constexpr Key<TextList> strKeyElNbrsArray{u"strKeyElNbrsArray"};
inline constexpr Key<TextList> strKeyNoCoAssoArray{u"strKeyNoCoAssoArray()"};
inline constexpr Key<TextList> strKeyPasArray{u"strKeyPasArray()"};
inline constexpr Key<TextList> strKeyQualifier_list{u"strKeyQualifier()"};
inline constexpr Key<TextList> strKeySegArray{u"strKeySegArray()"};

// Booleans
inline constexpr Key<bool> blnKeyAllPNR{u"blnKeyAllPNR"};
inline constexpr Key<bool> blnKeyAsterix{u"blnKeyAsterix"};
inline constexpr Key<bool> blnKeyCoList{u"blnKeyCoList"};
inline constexpr Key<bool> blnKeyCompany{u"blnKeyCompany"};
inline constexpr Key<bool> blnKeyCompanyList{u"blnKeyCompanyList"};
inline constexpr Key<bool> blnKeyCoProfile{u"blnKeyCoProfile"};
inline constexpr Key<bool> blnKeyDeactivatedTProfile{u"blnKeyDeactivatedTProfile"};
inline constexpr Key<bool> blnKeyEndOfBlock{u"blnKeyEndOfBlock"};
inline constexpr Key<bool> blnKeyEndOfList{u"blnKeyEndOfList"};
inline constexpr Key<bool> blnKeyEnter{u"blnKeyEnter"};
inline constexpr Key<bool> blnKeyErrCheckInput{u"blnKeyErrCheckInput"};
inline constexpr Key<bool> blnKeyErrNoRecLoc{u"blnKeyErrNoRecLoc"};
inline constexpr Key<bool> blnKeyError{u"blnKeyError"};
inline constexpr Key<bool> blnKeyExactMatch{u"blnKeyExactMatch"};
inline constexpr Key<bool> blnKeyExit{u"blnKeyExit"};
inline constexpr Key<bool> blnKeyFromPNR{u"blnKeyFromPNR"};
inline constexpr Key<bool> blnKeyIgnore{u"blnKeyIgnore"};
inline constexpr Key<bool> blnKeyList{u"blnKeyList"};
inline constexpr Key<bool> blnKeyMerge{u"blnKeyMerge"};
inline constexpr Key<bool> blnKeyMerged{u"blnKeyMerged"};
inline constexpr Key<bool> blnKeyNoCoFoundString{u"blnKeyNoCoFoundString"};
inline constexpr Key<bool> blnKeyNoElementsFound{u"blnKeyNoElementsFound"};
inline constexpr Key<bool> blnKeyNoTrPrFoundString{u"blnKeyNoTrPrFoundString"};
inline constexpr Key<bool> blnKeyOverride{u"blnKeyOverride"};
inline constexpr Key<bool> blnKeyPNR{u"blnKeyPNR"};
inline constexpr Key<bool> blnKeyPNRCreated{u"blnKeyPNRCreated"};
inline constexpr Key<bool> blnKeyPNRUpdated{u"blnKeyPNRUpdated"};
inline constexpr Key<bool> blnKeyProfile{u"blnKeyProfile"};
inline constexpr Key<bool> blnKeyResponseOK{u"blnKeyResponseOK"};
inline constexpr Key<bool> blnKeyTraveller{u"blnKeyTraveller"};
inline constexpr Key<bool> blnKeyTravellerList{u"blnKeyTravellerList"};
inline constexpr Key<bool> blnKeyTrList{u"blnKeyTrList"};
inline constexpr Key<bool> blnKeyTrProfile{u"blnKeyTrProfile"};
inline constexpr Key<bool> blnKeyUpdate{u"blnKeyUpdate"};

// 16-bit integers
inline constexpr Key<std::int16_t> intKeyIndex{u"intKeyIndex"};

}  // namespace key

}  // namespace vantro
