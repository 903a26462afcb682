#pragma once

namespace browse {
struct Lists;
}
namespace shell {
struct Frame;
}

namespace print {

// `Imprimir1`: prints the list that is on the screen. An empty list shows no dialog; a cancel and a failing
// printer end it without a message.
void Imprimir1(shell::Frame& frame, const browse::Lists& lists);

}  // namespace print
