// document.h - the file: open, pages, close.
//
//   ps_iniplot("site.ps");
//   ...                      drawing; ps_newpage() between pages
//   ps_endplot("", 'f');
//
// ps_endplot() replaces the old file by the new one. Until then, and after any failure, the old file is
// unchanged. The prolog and the closing comments name the file; bytes above 126 and control bytes of the name
// are written as \ooo, and a long name loses its beginning.
#pragma once

#include <string>

namespace sondera {

/// Starts a document: all state except the flag page switch is reset, queue from the environment variable
/// PRINT_PLOT_PS (else "postscript"), prolog, flag page if on, origin at (1, 2) cm. A document that is still
/// open is dropped. A file that cannot be opened ends the process with status 1, after a line on the error
/// stream; before that the program offers to save unsaved work.
void ps_iniplot(const std::string& name);

/// The same without ending the process, for reports: false, and ps_reason() says why. Nothing is printed.
bool ps_try_iniplot(const std::string& name);

/// Shows the page and starts the next one, with flag page if on and origin at (1, 2) cm. A pending path is
/// stroked first. Grey, line width, dash and colour get their initial values.
void ps_newpage();

/// Ends the document. An empty name means that of ps_iniplot(). action 'f': file only; 'd': print the file,
/// then remove it if the spooler accepted it; 's' and all others: print it. 1; 0 when the file could not be
/// put in place (line on the error stream, ps_reason(); nothing is printed) or the spooler refused it.
int ps_endplot(const std::string& name, char action);

/// The two parts of the above that handle the file: plopen() ends the process as ps_iniplot() does, plclose()
/// writes the end of the last page and of the file. plclose(): 1, or 0 with a line on the error stream.
void plopen(const std::string& name);
int plclose(const std::string& name);

/// Sentence on why the last document was not opened or not put in place; "" when nothing failed. While a
/// document is open: on its first failed write.
std::string ps_reason();

// Flag page box on each page; call it before ps_iniplot().
void ps_banner();
void ps_no_banner();

/// Print queue of this document; call it after ps_iniplot().
void ps_queue_name(const std::string& name);

}  // namespace sondera
