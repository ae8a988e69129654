// What startup-bench compares the plug-in with: a module without anything in it.
