Placeholder for the basic model file coil.mod of the Coil example.
The real file is a binary model file of the analysis application; this text only
lets the example session name a file that exists (run with --drive C=examples/coil/drive_c).
