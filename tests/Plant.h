#pragma once

#include <string>
#include <vector>

#include "FakePlatform.h"

namespace trevandix::testing {

/// Adds records by their keys, parents first: "U" is a unit, "U.A/" a branch, "U.A.x" an item.
void plant(Workplace& place, const std::vector<std::string>& keys);

/// A saved configuration with these records and an empty message log.
struct PlantedWorkplace : Workplace {
    explicit PlantedWorkplace(const std::vector<std::string>& keys, const std::filesystem::path& state = {});

    /// Drags with the right button; an empty key stands for the first node.
    void drag(std::string_view source, std::string_view target, bool control = false);
    bool has(std::string_view key) const { return configuration.tree.find(Key(key)) != nullptr; }
    /// Keys of the nodes below the one with the key, as the tree shows them.
    std::vector<std::string> below(std::string_view key);
    std::vector<std::string> wrong() const { return disagreements(configuration); }
};

}  // namespace trevandix::testing
