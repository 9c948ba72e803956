// The LISP file that each document starts with.
#pragma once

class AcApDocument;

namespace KxPlat {

// kxcad.lsp from the trusted folders of the support path and then the user's own; S::STARTUP where they define it.
// A drawing's folder is not looked into.
void LoadStartupFiles(AcApDocument& document);

}   // namespace KxPlat
