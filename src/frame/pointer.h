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
// Where it cannot give way: neither keys nor timers get their turn, so nothing begins in the midst of the
// work.
void letWindowsPaint();

}  // namespace frame
