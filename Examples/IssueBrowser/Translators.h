#pragma once

/// Lets the program, the library and Qt speak the first language of the session, if there are catalogues.
void installTranslators();
