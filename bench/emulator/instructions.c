/* A plugin for QEMU's user-mode emulators that counts instructions between two marks, and writes
   the count to the file that its argument names: -plugin instructions.so,counts=FILE

   Debian packages no header for plugins; what is used of it is declared here, as in version 1 of
   QEMU's plugin interface. Threads add to one number without a lock, so that a few instructions of
   threads that run at the same time may be lost. */
#include <inttypes.h>
#include <stddef.h>
#include <stdio.h>
#include <string.h>

#include "marks.h"

typedef uint64_t qemu_plugin_id_t;
typedef struct qemu_info_t qemu_info_t;
struct qemu_plugin_tb;
enum qemu_plugin_op { QEMU_PLUGIN_INLINE_ADD_U64 };

typedef void (*translated_t)(qemu_plugin_id_t id, struct qemu_plugin_tb *block);
typedef void (*called_t)(qemu_plugin_id_t id, unsigned vcpu, int64_t number, uint64_t a1, uint64_t a2,
                         uint64_t a3, uint64_t a4, uint64_t a5, uint64_t a6, uint64_t a7,
                         uint64_t a8);

void qemu_plugin_register_vcpu_tb_trans_cb(qemu_plugin_id_t id, translated_t callback);
size_t qemu_plugin_tb_n_insns(const struct qemu_plugin_tb *block);
void qemu_plugin_register_vcpu_tb_exec_inline(struct qemu_plugin_tb *block, enum qemu_plugin_op op,
                                              void *number, uint64_t by);
void qemu_plugin_register_vcpu_syscall_cb(qemu_plugin_id_t id, called_t callback);

int qemu_plugin_version = 1;

static uint64_t count;
static char counts[4096];

static void on_translated(qemu_plugin_id_t id, struct qemu_plugin_tb *block)
{
    (void)id;
    qemu_plugin_register_vcpu_tb_exec_inline(block, QEMU_PLUGIN_INLINE_ADD_U64, &count,
                                             qemu_plugin_tb_n_insns(block));
}

static void on_call(qemu_plugin_id_t id, unsigned vcpu, int64_t number, uint64_t what, uint64_t a2,
                    uint64_t a3, uint64_t a4, uint64_t a5, uint64_t a6, uint64_t a7, uint64_t a8)
{
    (void)id, (void)vcpu, (void)a2, (void)a3, (void)a4, (void)a5, (void)a6, (void)a7, (void)a8;
    if (number != WELMO_MARK)
        return;
    const uint64_t total = count;
    FILE *file = what == WELMO_MARK_END ? fopen(counts, "w") : NULL;
    if (file) {
        fprintf(file, "%" PRIu64, total);
        fclose(file);
    }
    count = 0;
}

int qemu_plugin_install(qemu_plugin_id_t id, const qemu_info_t *info, int argc, char **argv)
{
    (void)info;
    const char *key = "counts=";
    if (argc != 1 || strncmp(argv[0], key, strlen(key)) != 0 || strlen(argv[0]) >= sizeof counts) {
        fprintf(stderr, "instructions: needs counts=FILE\n");
        return 1;
    }
    strcpy(counts, argv[0] + strlen(key));
    qemu_plugin_register_vcpu_tb_trans_cb(id, on_translated);
    qemu_plugin_register_vcpu_syscall_cb(id, on_call);
    return 0;
}
