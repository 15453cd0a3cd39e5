# Sources of this subsystem; each file here adds its own units.
