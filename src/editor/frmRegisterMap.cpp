#include "editor/frmRegisterMap.h"

#include <algorithm>
#include <array>

#include "check/Wording.h"
#include "model/Numbers.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

constexpr std::string_view kMap = "mapRegisters";
constexpr std::size_t kMostNamed = 3;

constexpr std::array kControls{
    ControlSpec{ControlKind::Heading, "lblUnit"},
    ControlSpec{ControlKind::Map, kMap}.describedAs("What the items of the unit cover"),
    ControlSpec{ControlKind::Note, "txtBlock", "Current block"}.describedAs(
        "Key, address, type, access right and comment"),
    ControlSpec{ControlKind::Heading, "lblHomeless"},
    ControlSpec{ControlKind::Button, "cmdHomeless", "Next Without &Place", "", Place::ButtonRow}.describedAs(
        "Selects the next item without a place in the map"),
    ControlSpec{ControlKind::Button, "cmdFree", "Next &Free Address...", "", Place::ButtonRow}.describedAs(
        "Selects the next stretch with enough room and copies its address"),
    ControlSpec{ControlKind::Button, "cmdOpen", "&Open", "", Place::ButtonRow}.describedAs(
        "Opens the dialog of the current block's item"),
    ControlSpec{ControlKind::Button, "cmdCancel", "&Close", "", Place::ButtonRow}.describedAs(
        "Closes the window"),
};
constexpr FormSpec kForm{"frmRegisterMap", "Register Map", kControls, "cmdOpen", "cmdCancel", kMap, true};

}  // namespace

const TreeNode* frmRegisterMap::pointed() const {
    if (!context_.state().configurationOpen) return nullptr;
    const auto row = context_.list.currentRow();
    if (row && context_.platform.window.focusedView() == FocusedView::List)
        return context_.tree().find(context_.list.rows()[*row].key);
    return context_.tree().selected();
}

void frmRegisterMap::mnuRegisterMap_Click() {
    context_.guarded("mnuRegisterMap_Click", [&] {
        const TreeNode* unit = unitAround(context_.configuration, pointed());
        if (unit == nullptr) return context_.news.tell("No register map: nothing in a unit is selected");
        if (form_ == nullptr) Form_Load();
        open_ = true;
        update(unit);
        form_->showModeless();
        form_->setFocus(kMap);
    });
}

void frmRegisterMap::Form_Load() {
    form_ = context_.platform.forms.create(kForm);
    const auto guarded = [this](std::string_view procedure, auto work) {
        return [this, procedure, work](auto... arguments) {
            context_.guarded(procedure, [&] { work(arguments...); });
        };
    };
    form_->connectMap(
        kMap, lines_,
        {.click = guarded("mapClick", [this](const MapPoint& point) { selectBlock(lines_.at(point)); }),
         .open = guarded("mapOpen",
                         [this](const MapPoint& point) {
                             if (lines_.at(point)) cmdOpen_Click();
                         }),
         .move = guarded("mapMove",
                         [this](MapMove move, std::size_t page) { selectBlock(lines_.moved(move, page)); })});
    form_->onClosed([this] { open_ = false; });
    form_->on("cmdHomeless", guarded("cmdHomeless_Click", [this] { select(lines_.nextHomeless()); }));
    form_->on("cmdFree", guarded("cmdFree_Click", [this] { cmdFree_Click(); }));
    form_->on("cmdOpen", guarded("cmdOpen_Click", [this] { cmdOpen_Click(); }));
    form_->on("cmdCancel", [this] { form_->close(); });
}

void frmRegisterMap::follow() {
    if (open_) context_.guarded("follow", [&] { update(nullptr); });
}

// Without a unit, shows that of the selected node, or else the same as before.
void frmRegisterMap::update(const TreeNode* unit) {
    const TreeNode* selected = context_.state().configurationOpen ? context_.tree().selected() : nullptr;
    if (unit == nullptr) unit = unitAround(context_.configuration, selected);
    if (unit == nullptr && selected != nullptr)
        unit = unitAround(context_.configuration, context_.tree().find(unit_));
    const Key key = unit == nullptr ? Key() : unit->key();
    const std::uint64_t revision = context_.configuration.revision();
    const bool same = key == unit_ && revision == revision_;
    if (!same) {
        if (!(key == unit_)) lines_.replace(RegisterMap());  // so that it begins at the top
        unit_ = key;
        revision_ = revision;
        lines_.replace(unit == nullptr ? RegisterMap() : registerMapOf(context_.configuration, *unit));
    }
    const Key selectedKey = selected == nullptr ? Key() : selected->key();
    if (same && selectedKey == selected_) return;
    selected_ = selectedKey;
    if (selected != nullptr && selected->tag() == NodeTag::Item) lines_.setCurrent(selected_);
    show();
}

void frmRegisterMap::show() {
    const Key current = lines_.item();
    lines_.setSelected(current == selected_);
    std::size_t items = lines_.map().homeless.size();
    for (const TableMap& table : lines_.map().tables) items += table.blocks.size();
    setText("lblUnit", unit_.empty() ? "No unit" : shownKey(unit_) + ": " + counted(items, "item", "items"));
    setText("lblHomeless", homelessText());
    for (const std::string_view control : {"lblHomeless", "cmdHomeless"}) {
        const bool wanted = !lines_.map().homeless.empty();
        if (form_->visible(control) != wanted) form_->setVisible(control, wanted);
    }
    setText("txtBlock", unit_.empty() ? "" : lines_.spoken());
    form_->setEnabled("cmdOpen", !current.empty());
    form_->setEnabled("cmdFree", !unit_.empty());
    form_->refreshMap(kMap);
}

// A window fits itself to its texts, so these are set only if they differ.
void frmRegisterMap::setText(std::string_view control, const std::string& text) const {
    if (form_->text(control) != text) form_->setText(control, text);
}

std::string frmRegisterMap::homelessText() const {
    const std::vector<Key>& items = lines_.map().homeless;
    if (items.empty()) return {};
    std::string text = counted(items.size(), "item", "items") + " without a place, by type or address: ";
    const std::size_t named = std::min(items.size(), kMostNamed);
    for (std::size_t i = 0; i < named; ++i) text += (i == 0 ? "" : ", ") + shownKey(items[i]);
    return text + andMore(items.size() - named);
}

void frmRegisterMap::selectBlock(const std::optional<MapLines::Place>& place) {
    if (place) select(lines_.itemAt(*place));
}

// As a click in the tree does.
void frmRegisterMap::select(const Key& item) {
    TreeNode* node = context_.tree().find(item);
    if (node == nullptr) return follow();
    lines_.setCurrent(item);
    selected_ = Key();
    context_.news.tell({});
    views_.select(*node);
    context_.news.update();
    follow();
}

// Afterwards selects the item again instead of its branch, so that the arrow keys go on from here.
void frmRegisterMap::cmdOpen_Click() {
    update(nullptr);
    TreeNode* node = context_.tree().find(lines_.item());
    if (node == nullptr) return;
    views_.select(*node);
    openSelected_();
    views_.select(*node);
    context_.news.update();
    follow();
}

void frmRegisterMap::cmdFree_Click() {
    Platform& platform = context_.platform;
    wanted_ = proposed();
    const auto wanted =
        showFrmFreeAddress(platform.forms, platform.messages, context_.configuration, *wanted_);
    if (!wanted) return;
    wanted_ = wanted;
    findFree(*wanted);
    context_.news.update();
}

// What was wanted before, else what the current item has.
FreeAddressFields frmRegisterMap::proposed() const {
    if (wanted_) return *wanted_;
    const auto item = context_.configuration.items.find(lines_.item());
    if (item == nullptr) return {};
    const ItemFields fields = item->texts();
    return {fields.table, fields.type, fields.elements};
}

void frmRegisterMap::findFree(const FreeAddressFields& wanted) {
    const ModbusTable& table = *tableOf(wanted.table);
    const ValueType& type = *valueTypeOf(wanted.type);
    const auto length = spanOf(table, type, {}, toInt32(leadingNumber(wanted.elements))).length();
    const auto gap = lines_.freeBehindCurrent(table, length, type.bitwise());
    std::string answer = "Not enough room in " + wanted.table + ": no free stretch is long enough";
    if (gap) {
        const std::string address = std::to_string(gap->span.begin / unitsPerAddress(table));
        const bool copied = context_.platform.clipboard.setText(address);
        answer = "Free: " + lines_.told(*gap) + (copied ? "; address " + address + " copied" : "") +
                 (copied ? "" : "; not copied: another program uses the clipboard");
    }
    lines_.setAnswer(answer, gap);
    show();
    context_.news.tell(answer);
}

void frmRegisterMap::unload() {
    if (open_) form_->close();
    form_.reset();
}

}  // namespace trevandix
