// Export macro of the EpromDatablock library: the library is built with hidden symbols and
// exports only what carries this mark.
#pragma once

#define EPROMDATABLOCK_EXPORT __attribute__((visibility("default")))
