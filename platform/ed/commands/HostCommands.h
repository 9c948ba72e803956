// The commands of the host itself, each in a file of its own or of its family.
#pragma once

namespace KxPlat {

void EraseCommand();
void LayerCommand();
void ListCommand();
void PurgeCommand();
void SelectCommand();

}   // namespace KxPlat
