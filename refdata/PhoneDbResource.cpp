// Holds phone.db as a part of the program. The build gives its path in QUORVI_PHONE_DB.
#include "refdata/PhoneDb.h"
#include "refdata/PhoneDbFormat.h"

asm(".pushsection .rodata.quorvi_phone_db, \"a\", @progbits\n"
    ".balign 16\n"
    ".globl quorvi_phone_db\n"
    ".hidden quorvi_phone_db\n"
    "quorvi_phone_db:\n"
    ".incbin \"" QUORVI_PHONE_DB
    "\"\n"
    ".globl quorvi_phone_db_end\n"
    ".hidden quorvi_phone_db_end\n"
    "quorvi_phone_db_end:\n"
    ".popsection\n");

extern "C" {
extern const std::byte quorvi_phone_db[];
extern const std::byte quorvi_phone_db_end[];
}

namespace quorvi {

std::span<const std::byte> PhoneDbResource() {
    return {quorvi_phone_db, quorvi_phone_db_end};
}

}  // namespace quorvi
