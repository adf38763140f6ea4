#include "Plant.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "platform/Text.h"

namespace trevandix::testing {

clsPLC& plantUnit(Configuration& configuration, const std::string& name, std::string_view address) {
    clsPLC unit;
    unit.setName(name);
    unit.setAddress(address);
    unit.sKey(name);
    configuration.addUnit(unit);
    return behindTheDoor(*configuration.units.last());
}

TreeNode& plantBranch(Configuration& configuration, TreeNode& container, const std::string& name) {
    clsBranch branch;
    branch.sName(name);
    branch.sKey(Key(container.key(), name));
    return configuration.addBranch(branch, container);
}

clsItem& plantItem(Configuration& configuration, TreeNode& container, const std::string& name) {
    clsItem item;
    item.sName(name);
    item.sDataType("holding register:signed 16 bit");
    item.sAccessRight("READ");
    item.sKey(Key(container.key(), name));
    configuration.addItem(item, container);
    return behindTheDoor(*configuration.items.last());
}

void plant(Workplace& place, const Texts& keys) {
    for (const std::string& key : keys) {
        const bool branch = key.ends_with('/');
        const std::size_t dot = key.rfind('.');
        if (dot == std::string::npos) {
            plantUnit(place.configuration, key);
            continue;
        }
        TreeNode& parent = place.node(key.substr(0, dot));
        const std::string name = key.substr(dot + 1, key.size() - dot - (branch ? 2 : 1));
        if (parent.tag() == NodeTag::ModBus) {
            clsModBusType type;
            type.setName(name);
            place.configuration.addDataType(type);
        } else if (branch) {
            plantBranch(place.configuration, parent, name);
        } else {
            plantItem(place.configuration, parent, name);
        }
    }
}

PlantedWorkplace::PlantedWorkplace(const Texts& keys, const std::filesystem::path& state) : Workplace(state) {
    newConfiguration(kTcpIp);
    plant(*this, keys);
    configuration.setSaved(true);
    messages.take();
}

PlantedWorkplace& PlantedWorkplace::at(std::string_view key, const Texts& rows) {
    click(key);
    if (!rows.empty()) selectRows(rows);
    return *this;
}

namespace {

TreeNode* nodeOf(Workplace& place, std::string_view key) {
    if (key != "top") return &place.node(key);
    if (place.configuration.tree.root() == nullptr) throw std::logic_error("the tree is empty");
    return place.configuration.tree.root();
}

std::string joined(const Texts& texts, std::string_view separator) {
    std::string all;
    for (const std::string& text : texts) {
        if (!text.empty()) (all += all.empty() ? "" : separator) += text;
    }
    return all;
}

std::string outline(const TreeNode& node) {
    Texts children;
    for (const TreeNode* child = node.firstChild(); child != nullptr; child = child->nextSibling()) {
        const bool leaf = child->firstChild() == nullptr;
        children.push_back(child->text() + (leaf ? "" : "(" + outline(*child) + ")"));
    }
    return joined(children, " ");
}

void act(Workplace& place, const std::string& step) {
    const std::size_t colon = step.find(':');
    const std::string what = step.substr(0, colon);
    const std::string rest = step.substr(std::min(colon, step.size() - 2) + 2);
    const bool copies = what.starts_with("copy ");
    if (what == "no") {
        place.messages.answers.push_back(Answer::No);
    } else if (what == "pause") {
        place.editor.paused([] { return false; });
    } else if (what == "clipboard") {
        place.clipboard.contents = rest;
    } else if (what == "find" || what == "next") {
        place.forms.last->type("txtFind", rest);
        place.forms.last->press(what == "find" ? "cmdFind" : "cmdNext");
    } else if (what == "sort") {
        place.editor.ListView1_ColumnClick(std::stoul(rest));
    } else if (what.starts_with("mnu") || what.starts_with("edit ") || what.starts_with("button ") ||
               what == "openObject" || what.ends_with("Problem")) {
        if (colon != std::string::npos) {
            place.forms.scripts.emplace_back([rest](FakeForm& form) {
                if (!rest.empty()) form.fill(rest);
                form.press(form.shape.defaultButton);
            });
        }
        if (what.starts_with("edit "))
            place.edit(what.substr(5));
        else if (what.starts_with("button "))
            place.editor.Toolbar1_ButtonClick(what.substr(7));
        else
            place.run(what);
    } else if (copies || what.starts_with("drag ")) {
        const std::size_t to = what.find(" to ");
        drag(place, what.substr(5, to - 5), what.substr(to + 4), copies);
    } else {
        place.click(what == "top" ? "" : what);
        if (!rest.empty()) place.selectRows(split(rest, " "));
    }
}

std::string listed(const Workplace& place) {
    Texts texts{"list " + place.selectedKey() + ":"};
    const auto selected = place.list.selectedRows();
    for (std::size_t row = 0; row < place.list.rows().size(); ++row)
        texts.push_back((std::ranges::count(selected, row) == 0 ? "" : "*") + place.list.rows()[row].text);
    return joined(texts, " ");
}

// Returns the same parts as `wanted`, with their present values.
std::string seen(Workplace& place, const std::string& wanted) {
    auto& status = place.window.status;
    const std::string flag = place.configuration.state.saved ? "saved" : "unsaved";
    const std::string messages = joined(place.messages.take(), " / ");
    std::map<std::string, std::string> now{
        {"list", listed(place)},
        {"said", "said " + messages},
        {"saved", flag},
        {"unsaved", flag},
        {"opens", "opens " + joined(place.forms.shown, " ")},
        {"selection", "selection " + status[StatusField::Selection]},
        {"counts", "counts " + status[StatusField::Counts]},
        {"state", "state " + status[StatusField::Saved]},
        {"problems", "problems " + status[StatusField::Problems]},
        {"notice", "notice " + status[StatusField::Notice]},
        {"mode", "mode " + std::to_string(static_cast<int>(place.list.mode()))}};
    Texts found;
    for (const std::string& part : split(wanted, " | ")) {
        const std::string what = part.substr(0, part.find(' '));
        if (what == "tree") {
            const std::string top = part.substr(5, part.find(':') - 5);
            now[what] = joined({"tree " + top + ":", outline(*nodeOf(place, top))}, " ");
        }
        found.push_back(now[what]);
    }
    if (!messages.empty() && wanted.find("said ") == std::string::npos) found.push_back(now["said"]);
    return joined(found, " | ");
}

}  // namespace

void work(Workplace& place, const std::string& steps, const Fields& lines) {
    for (auto line = lines.begin(); line != lines.end();) {
        const auto before = line;
        place.forms.scripts.assign(1, [&](FakeForm& form) {
            for (; form.open && line != lines.end(); ++line) {
                const auto& [entries, wanted] = *line;
                if (!entries.empty()) form.fill(entries);
                const std::string said = joined(place.messages.take(), " / ");
                const std::string fields = wanted.substr(0, wanted.find(" | said "));
                EXPECT_EQ(form.shown(fields) + (said.empty() ? "" : " | said " + said), wanted) << entries;
            }
        });
        play(place, {{steps, ""}});
        ASSERT_NE(line, before) << "the dialog does not open";
    }
}

void play(Workplace& place, const Fields& lines) {
    for (const auto& [steps, wanted] : lines) {
        SCOPED_TRACE(steps);
        place.forms.shown.clear();
        for (const std::string& step : steps.empty() ? Texts{} : split(steps, "; ")) act(place, step);
        place.forms.scripts.clear();
        EXPECT_EQ(seen(place, wanted), wanted);
    }
}

bool drag(Workplace& place, std::string_view source, std::string_view target, bool control) {
    EXPECT_TRUE(place.editor.TreeView1_MouseDown(nodeOf(place, source), {.control = control}));
    EXPECT_EQ(place.editor.TreeView1_OLEStartDrag(), control ? DropEffect::Copy : DropEffect::Move);
    place.editor.TreeView1_OLEDragOver(nodeOf(place, target));
    const bool promised = place.editor.dropAllowed(nodeOf(place, target));
    place.drop(*nodeOf(place, source));
    return promised;
}

std::string PlantedWorkplace::saved(const std::string& name) {
    configuration.setFilePath(path(name));
    run("mnuSaveCfg");
    messages.take();
    return readFile(path(name));
}

bool isXml(std::string_view bytes) {
    try {
        PugiXmlParser().parse(bytes);
        return true;
    } catch (const XmlParseError&) {
        return false;
    }
}

Texts fileContents(const Configuration& configuration) {
    Texts lines{configuration.state.interfaceKind};
    const TreeNode& root = *configuration.tree.root();
    for (const TreeNode* n = nextBelow(root, root); n != nullptr; n = nextBelow(*n, root)) {
        std::string place;
        for (const TreeNode* up = n; up != &root; up = up->parent()) {
            // A shared record is written with its own name in every place.
            std::string name =
                up->tag() == NodeTag::Item ? configuration.items.at(up->key())->sName() : up->text();
            if (up->tag() == NodeTag::Branch) name = upperCased(name);
            place = "|" + name + place;
        }
        if (n->tag() == NodeTag::DataType) place += configuration.dataTypes.at(n->key())->GetXmlTag();
        if (n->tag() == NodeTag::Plc) place += configuration.units.at(n->key())->GetXmlTag(lines[0]);
        if (n->tag() == NodeTag::Item) place += configuration.items.at(n->key())->GetXmlTag(0);
        lines.push_back(std::string(tagName(n->tag())) + place);
    }
    return lines;
}

}  // namespace trevandix::testing
