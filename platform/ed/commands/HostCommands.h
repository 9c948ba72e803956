// The commands of the host itself, each in a file of its own or of its family.
#pragma once

class AcEdCommandStack;

namespace KxPlat {

void ArcCommand();
void AreaCommand();
void ArxCommand();
void AuditCommand();
void BlockCommand();
void ChangeCommand();
void ChpropCommand();
void CircleCommand();
void CloseCommand();
void ColorCommand();
void CopyCommand();
void DelayCommand();
void DistCommand();
void DrawOrderCommand();
void DxfOutCommand();
void EraseCommand();
void ExplodeCommand();
void GroupCommand();
void HelpCommand();
void IdCommand();
void InsertCommand();
void LayerCommand();
void LineCommand();
void ListCommand();
void MirrorCommand();
void MoveCommand();
void MultipleCommand();
void NetloadCommand();
void NewCommand();
void OopsCommand();
void OpenCommand();
void PlineCommand();
void PointCommand();
void PurgeCommand();
void QsaveCommand();
void QuitCommand();
void RecoverCommand();
void RectangCommand();
void RedefineCommand();
void RedoCommand();
void RedrawCommand();
void RegenCommand();
void RenameCommand();
void ResumeCommand();
void RotateCommand();
void SaveCommand();
void SaveAsCommand();
void ScaleCommand();
void ScriptCommand();
void SelectCommand();
void SetVarCommand();
void TextCommand();
void UCommand();
void UcsCommand();
void UndefineCommand();
void UndoCommand();
void XrefCommand();
void ZoomCommand();

void AddHostCommands(AcEdCommandStack& stack);

}   // namespace KxPlat
