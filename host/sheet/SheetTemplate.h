#pragma once

namespace host {

/// A sheet's page around its data: what comes before, with TITLE for its title, and after.
extern const char* const sheetHead;
extern const char* const sheetScript;

}
