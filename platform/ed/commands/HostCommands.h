// The commands of the host itself, each in a file of its own or of its family.
#pragma once

class AcEdCommandStack;

namespace KxPlat {

void ArxCommand();
void CloseCommand();
void DxfOutCommand();
void EraseCommand();
void HelpCommand();
void LayerCommand();
void ListCommand();
void NewCommand();
void OpenCommand();
void PurgeCommand();
void QsaveCommand();
void QuitCommand();
void RecoverCommand();
void RedoCommand();
void RegenCommand();
void SaveCommand();
void SaveAsCommand();
void ScriptCommand();
void SelectCommand();
void SetVarCommand();
void UCommand();
void UndoCommand();

void AddHostCommands(AcEdCommandStack& stack);

}   // namespace KxPlat
