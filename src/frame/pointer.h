#pragma once

namespace frame {

// The busy pointer, for as long as the object lives.
class Hourglass {
  public:
    enum Shape { Alone, WithArrow };  // the arrow stands where the work can be stopped
    explicit Hourglass(Shape shape = Alone);
    ~Hourglass();
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

// Lets the event queue run once: the fixed points at which long work gives way.
void yieldToQueue();

}  // namespace frame
