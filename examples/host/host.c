/* host.c: a host application in C that opens a scanner session, sets a reading mode and closes
 * it: the smallest use of the installed library. With the simulated transport the scanner is
 * always there; with a real transport it is the scanner configured below. */
#include <stdio.h>
#include <string.h>

#include <qmk/QmkScan.h>

int main(void) {
  sct_config cfg;
  sct_config_ex comm = {9600, 'E', 7, 1, 1, 10, 0};
  int error = 0;
  qlkdata_rec* rec;

  memset(&cfg, 0, sizeof cfg);
  cfg.feat_mask.family = 2; /* a plain mark scanner on a serial port */
  cfg.feat_mask.model_code = 5;
  cfg.feat_mask.series = 1;
  cfg.lead_edge_tol = 12;
  cfg.tune_p2 = 16;
  cfg.tune_p3 = 8;
  cfg.tune_p5 = 90;
  cfg.tune_p7 = 7;
  cfg.tune_p8 = 90;

  rec = ScnInitializeScanner(NULL, &cfg, &comm, &error);
  if (!rec) { /* test the record: a failed presence test may come with code 0 */
    fprintf(stderr, "host: the scanner did not open (code %d)\n", error);
    return 1;
  }
  printf("host: session open, mode result %d\n", ScnSetScannerMode(rec, 0, 0, 0, 0, 0));
  ScnScanTerm(rec);
  printf("host: session closed\n");
  return 0;
}
