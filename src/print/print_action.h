#pragma once

namespace lists {
struct Lists;
}
namespace frame {
struct Frame;
}

namespace print {

// `Imprimir1`: prints the list that is on the screen. An empty list shows no dialog; a cancel and a failing
// printer end it without a message.
void Imprimir1(frame::Frame& frame, const lists::Lists& lists);

}  // namespace print
