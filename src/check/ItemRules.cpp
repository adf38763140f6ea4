#include "check/Families.h"
#include "check/Wording.h"

namespace trevandix {

namespace {

/// Calls `look` with each item that the file can hold, and what to tell it by.
template <typename Look>
void eachKnown(Search& search, Look look) {
    search.each(search.survey.items, [&](const ItemFacts& item) {
        if (item.type->known()) look(item, *search.survey.objects[item.object].key);
    });
}

bool mayRead(const ItemFacts& item) {
    return item.type->dataType == nullptr || item.type->dataType->getReadCode() != 0;
}

// A single value is written by either code.
bool mayWrite(const ItemFacts& item) {
    const clsModBusType* type = item.type->dataType;
    if (type == nullptr || type->getWriteCode() != 0) return true;
    return !item.value().elements && type->getSingleWrCode() != 0;
}

// Registers, or bits in a table of bits; also of an item whose address or bit is none of the table's.
std::int64_t places(const ItemFacts& item) {
    const std::int16_t bit = isBit(item.bit) ? item.bit : std::int16_t{0};
    const Span span = spanOf(item.table(), item.value(), {0, bit}, item.elements);
    if (span.empty()) return 0;
    return (span.end - 1) / unitsPerAddress(item.table()) + 1;
}

std::string_view placeName(const ItemFacts& item) {
    return item.table().registers ? "registers" : "bits";
}

}  // namespace

void findMissingDataTypes(Search& search) {
    eachKnown(search, [&](const ItemFacts& item, const Key& key) {
        if (item.type->dataType != nullptr) return;
        search.found(key, "no data type tells the server how to read the table " + quoted(item.type->table) +
                              "; add it below ModBus");
    });
}

void findAccessRights(Search& search) {
    eachKnown(search, [&](const ItemFacts& item, const Key& key) {
        const auto tell = [&](std::string_view what, std::string_view lack, std::string_view mending) {
            search.found(key, std::string(what)
                                  .append(quoted(item.type->table))
                                  .append(lack)
                                  .append(", but the access right is " + item.record->sAccessRight())
                                  .append(mending));
        };
        constexpr std::string_view kDataType = "the data type ";
        if (item.right->writes && !item.table().writable())
            tell("the table ", " can only be read", "; set READ");
        else if (item.right->reads && !mayRead(item))
            tell(kDataType, " has no read code", "; enter it there");
        else if (item.right->writes && !mayWrite(item))
            tell(kDataType,
                 item.value().elements ? " has no write code for several values" : " has no write code",
                 "; enter it there, or set READ");
    });
}

void findAddresses(Search& search) {
    eachKnown(search, [&](const ItemFacts& item, const Key& key) {
        if (item.address < 0 || item.address > kLastAddress) {
            search.found(key, "address " + std::to_string(item.address) +
                                  " is outside 0 to 65535; enter one of the device's");
            return;
        }
        const std::int64_t last = item.address + places(item) - 1;
        if (last > kLastAddress) {
            search.found(key, "reaches to address " + std::to_string(last) +
                                  ", beyond 65535; move it or give it fewer elements");
        }
    });
}

void findBits(Search& search) {
    eachKnown(search, [&](const ItemFacts& item, const Key& key) {
        if (!item.value().bitwise() || isBit(item.bit)) return;
        search.found(key,
                     "bit " + std::to_string(item.bit) + " is outside 0 to 15; choose one of the register's");
    });
}

void findElements(Search& search) {
    eachKnown(search, [&](const ItemFacts& item, const Key& key) {
        if (item.count() > 0) return;
        search.found(key, "has " + std::to_string(item.elements) + " elements; enter 1 or more");
    });
}

void findItemValues(Search& search) {
    eachKnown(search, [&](const ItemFacts& item, const Key& key) {
        if (!item.type->offered) {
            search.found(key, "the table " + quoted(item.type->table) + " has no values of type " +
                                  quoted(item.value().label) + "; choose another data type");
        } else if (!item.right->known()) {
            search.found(key, "access right " + quoted(item.record->sAccessRight()) +
                                  " is none of READ, WRITE and READWRITE; choose one of them");
        }
    });
}

void findLongRequests(Search& search) {
    struct Limits {
        std::int64_t read;
        std::int64_t write;
    };
    constexpr Limits kRegisters{125, 123};
    constexpr Limits kBits{2000, 1968};
    eachKnown(search, [&](const ItemFacts& item, const Key& key) {
        if (!item.value().elements) return;
        const Limits& most = item.table().registers ? kRegisters : kBits;
        const std::int64_t length = places(item);
        const bool tooLongToRead = item.right->reads && length > most.read;
        if (!tooLongToRead && !(item.right->writes && length > most.write)) return;
        const std::string limit = tooLongToRead ? "reads at most " + std::to_string(most.read)
                                                : "writes at most " + std::to_string(most.write);
        search.found(key, "takes " + std::to_string(length) + " " + std::string(placeName(item)) +
                              ", but one Modbus request " + limit + "; split it");
    });
}

}  // namespace trevandix
