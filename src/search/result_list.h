#pragma once

#include "browse/list_item.h"

namespace search {

// The list that a search fills, ListView2 of the main window.
class ResultList {
  public:
    virtual ~ResultList() = default;
    virtual void clear() = 0;
    // What is added in between is shown at the end.
    virtual void beginFill() = 0;
    virtual void add(const browse::ListItem& item) = 0;
    virtual void endFill() = 0;
};

}  // namespace search
