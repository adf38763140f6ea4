# shellcheck shell=bash
# Steps in the property dialogs, using access keys (underlined letters), which are the same on every system.

types="ModBus Data Type Properties"
unit="Unit Properties"
branch="Branch Name"
item="Item Properties"

new_configuration() { # [KEY... that choose the other interface]
    menu f n
    await "Select ModBus interface"
    keys "$@" Return
    await "$main"
}

open_dialog() { # ENTRY of the Objects menu, TITLE
    menu o "$1"
    await "$2"
}

confirm_dialog() {
    keys Return
    await "$main"
}

leave_dialog() {
    keys Escape
    await "$main"
}

find_item() { # TEXT KEY
    keys ctrl+f
    await "Find Item"
    replaced "$1"
    keys "$2"
    await_tree
}

# Waits until the tree has the focus. Under Wine the window manager does not know.
await_tree() {
    if [ -n "$under_wine" ]; then sleep 0.2 && settle; else await "$main"; fi
}

leave_find() {
    keys ctrl+f
    await "Find Item"
    leave_dialog
}

leave_program() {
    menu f x
    await_end
}

fill_text() { # ACCESS KEY, TEXT
    keys "alt+$1"
    replaced "$2"
}

pasted() { # ACCESS KEY, TEXT in printf format
    if [ -n "$under_wine" ]; then
        copied "$2"
        keys "alt+$1" ctrl+a ctrl+v
        return
    fi
    # GTK requests the text asynchronously, so this waits until xclip has delivered it and ended.
    local owner
    # shellcheck disable=SC2059
    printf "$2" | xclip -selection clipboard -loops 1
    owner=$(pgrep -n -f 'xclip -selection clipboard -loops 1')
    keys "alt+$1" ctrl+a ctrl+v
    until_true 5 eval "! kill -0 $owner 2>/dev/null" || fail "nothing was pasted"
}

add_type() { # ENTRY
    open_dialog a "$types"
    choose "$1"
    confirm_dialog
}

# Fields in tab order, without disabled fields.
fill_unit() { # NAME FIELD...
    local field
    replaced "$1"
    for field in "${@:2}"; do
        keys Tab
        replaced "$field"
    done
}

# Leaves an editable list; in GTK its arrow gets the focus too.
leave_combo() {
    keys Tab
    if [ -z "$under_wine" ]; then keys Tab; fi
}

add_branch() { # NAME
    open_dialog b "$branch"
    replaced "$1"
    confirm_dialog
}

# Positions of the tables in the list, in the order in which add_type added them.
declare -A tables=(["input status"]=1 ["coil"]=2 ["input register"]=3 ["holding register"]=4)

# fill_item TABLE NAME COMMENT ADDRESS TYPE RIGHT: TYPE and RIGHT are positions in their lists. An empty NAME keeps the
# proposed one.
fill_item() {
    keys alt+m
    choose "${tables[$1]}"
    if [ -n "$2" ]; then fill_text i "$2"; fi
    fill_text c "$3"
    fill_text a "$4"
    keys alt+d
    choose "$5"
    keys alt+r
    choose "$6"
}

fill_bit() {
    keys alt+b
    choose $(($1 + 1))
}

