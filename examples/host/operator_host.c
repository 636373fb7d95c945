/* operator_host.c: a host that answers the library's questions itself, as a scanning service
 * without a terminal would: it installs its own operator, logs every fault of a failed sheet
 * and has the sheet read again once. With the simulated transport it loads two sheets, the first
 * too thick; with a real transport the sheets are whatever lies in the hopper. */
#include <stdio.h>
#include <string.h>

#include <qmk/QmkLinkSim.h>
#include <qmk/QmkScan.h>

struct service {
  int faults_seen;
};

static int on_message_box(void* context, QMK_HWND parent, const char* text, const char* caption,
                          unsigned flags, int help_id) {
  (void)context, (void)parent, (void)help_id;
  printf("operator_host: message \"%s: %s\"\n", caption, text);
  return (flags & 0x0F) == 0 ? 1 : 2; /* OK alone, else Cancel */
}

static int on_fault_list(void* context, const char* title, const char* heading,
                         const char* const* faults, int count, const char* advice) {
  struct service* s = context;
  int i;
  printf("operator_host: %s. %s\n", title, heading);
  for (i = 0; i < count; ++i) printf("operator_host:   %s\n", faults[i]);
  printf("operator_host: %s\n", advice);
  return ++s->faults_seen == 1 ? 1 : 2; /* the first time: read again; after that: stop */
}

int main(void) {
  static const char batch[] =
      "sheet\n status1 0x40\nend\n"                       /* too thick: a fault */
      "sheet\n front\n x..x\n .x..\n end\nend\n";         /* a good sheet */
  struct service s = {0};
  ScnOperator op;
  sct_config cfg;
  sct_config_ex comm = {9600, 'E', 7, 1, 1, 10, 0};
  char front[QMK_OMR_BYTES], back[QMK_OMR_BYTES], error[128];
  int cells_front, cells_back, length_front, length_back, result;
  qlkdata_rec* rec;

  memset(&op, 0, sizeof op);
  op.size = sizeof op;
  op.context = &s;
  op.message_box = on_message_box;
  op.fault_list = on_fault_list;
  if (ScnSetOperator(&op) != 0) return 1;

  if (QlkSimLoadBatchText(batch, (int)strlen(batch), error, sizeof error) < 0) {
    fprintf(stderr, "operator_host: %s\n", error);
    return 1;
  }
  memset(&cfg, 0, sizeof cfg);
  cfg.feat_mask.family = 2;
  cfg.feat_mask.model_code = 5;
  cfg.feat_mask.series = 1;
  rec = ScnInitializeScanner(NULL, &cfg, &comm, NULL);
  if (!rec) return 1;
  result = ScnScanForOMR(NULL, rec, 1, QMK_OMR_BYTES, front, back, &cells_front, &cells_back,
                         &length_front, &length_back);
  printf("operator_host: read result %d after %d fault list(s), %d cells a line on the front\n",
         result, s.faults_seen, cells_front);
  ScnScanTerm(rec);
  ScnSetOperator(NULL);
  return result == 0 && s.faults_seen == 1 ? 0 : 1;
}
