// SPDX-License-Identifier: MIT
// In sanitized builds alone: what the leak check is to overlook. Qt's PDF view keeps its gesture and its render thread,
// and a document that can't be loaded keeps its reader.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:QScroller::grabGesture\nleak:libQt6Pdf.so\n";
}
