#pragma once
// The texts of the executor's message boxes.
namespace trelvin {

inline constexpr const char* kExecuteErrorPrefix = "Chyba pri provadeni tahu - ";
inline constexpr const char* kForgeryMessage =
    "Chyba - zaznam je padelek - hrac nema dostatecny pocet tahu na provedeni tahu";

}  // namespace trelvin
