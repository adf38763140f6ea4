#include "model/Journal.h"

#include <utility>

namespace trevandix {

void Journal::begin(const Moment& before) {
    open_ = {.name = {}, .before = before};
    noting_ = true;
}

void Journal::end(std::string name, const Moment& after) {
    noting_ = false;
    if (open_.changes.empty()) return;
    undone_.clear();
    open_.name = std::move(name);
    open_.after = after;
    bytes_ += open_.bytes;
    done_.push_back(std::move(open_));
    while (bytes_ > kMostBytes && done_.size() > 1) {
        bytes_ -= done_.front().bytes;
        done_.pop_front();
    }
}

Journal::Step& Journal::undo() {
    bytes_ -= done_.back().bytes;
    undone_.push_back(std::move(done_.back()));
    done_.pop_back();
    return undone_.back();
}

Journal::Step& Journal::redo() {
    done_.push_back(std::move(undone_.back()));
    undone_.pop_back();
    bytes_ += done_.back().bytes;
    return done_.back();
}

void Journal::clear() {
    noting_ = false;
    bytes_ = 0;
    open_ = {};
    done_.clear();
    undone_.clear();
}

}  // namespace trevandix
