#pragma once

#include <string>

#include "check/Search.h"

// The functions of the rules, one for each row of the table of rules, by the files they stand in.

namespace trevandix {

// TextRules: what the file's text would say to other programs.
void findMarkup(Search& search);
void findControlCharacters(Search& search);
void findBranchNames(Search& search);
void findBranchesCalledTag(Search& search);
/// The first fault of these kinds that the object has: `comment holds "&"`. Empty where there is none.
std::string textFault(const Survey& survey, const Object& object, const ItemFacts* item);

// KeyRules: what would not come back.
void findMissingNames(Search& search);
void findKeyCollisions(Search& search);
void findUnknownTypes(Search& search);
void findMisplacedNodes(Search& search);
void findNodesWithoutRecord(Search& search);
void findRecordsWithoutNode(Search& search);

// ItemRules: what the server cannot do with an item.
void findMissingDataTypes(Search& search);
void findAccessRights(Search& search);
void findAddresses(Search& search);
void findBits(Search& search);
void findElements(Search& search);
void findItemValues(Search& search);
void findLongRequests(Search& search);

// UnitRules: how units and data types are set.
void findSameIdentifiers(Search& search);
void findLineSettings(Search& search);
void findIpAddresses(Search& search);
void findPortNames(Search& search);
void findUnitValues(Search& search);
void findFunctionCodes(Search& search);
void findIdentifiers(Search& search);
void findTimeouts(Search& search);

// OverlapRule
void findOverlaps(Search& search);

// NameRules: names that may mislead.
void findNamesInCapitals(Search& search);
void findDots(Search& search);
void findBlanks(Search& search);
void findDefaultNames(Search& search);
void findOtherNames(Search& search);
void findEmptyBranches(Search& search);
void findSmallLetters(Search& search);

}  // namespace trevandix
