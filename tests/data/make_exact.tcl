# Makes the STEP, IGES and BREP files here with the modelling kernel's own test program, so that none of our code has a
# part in them:
#
#   cd tests/data && occt-draw -b -f make_exact.tcl        (Debian packages occt-draw and libocct-draw-dev)

pload MODELING XDE DCAF
param write.iges.header.author velbase

# A plate of 4 x 3 x 0.5 inches with a hole, and a pin for the hole.
box block 101.6 76.2 12.7
pcylinder hole 6.35 25.4
ttranslate hole 25.4 38.1 -6.35
bcut plate block hole
pcylinder pin 6.35 25.4
# A ball on a cone on a ring: surfaces of all elementary kinds.
pcone cone 20 8 30
psphere ball 10
ttranslate ball 0 0 34
ptorus ring 20 4
bfuse lower cone ring
bfuse fused lower ball
explode fused so
renamevar fused_1 knob
# The side and the bottom of a cylinder: a shell without a lid.
pcylinder drum 10 20
explode drum f
sewing shell 0.001 drum_1 drum_3

# An empty document whose files are written in a unit and, for STEP, in a schema.
proc document {unit schema} {
  global D
  catch {Close D}
  XNewDoc D
  param write.step.unit $unit
  param write.iges.unit $unit
  param write.step.schema $schema
}

# Adds a part with a name and a colour; gives its label.
proc part {shape name args} {
  global D $shape
  set label [XAddShape D $shape 0]
  SetName D $label $name
  if {[llength $args]} {XSetColor D $label {*}$args}
  return $label
}

# Adds an assembly of located copies of parts: SHAPE NAME ...; gives its label.
proc assembly {name args} {
  global D
  set label [XNewShape D]
  SetName D $label $name
  set number 0
  global {*}$args
  foreach {shape instance} $args {
    XAddComponent D $label $shape
    SetName D $label:[incr number] $instance
  }
  return $label
}

# A red plate and two blue pins.
document INCH AP214IS
part plate plate 1 0 0
part pin pin 0 0 1
copy pin pin_a; ttranslate pin_a 25.4 38.1 12.7
copy pin pin_b; ttranslate pin_b 76.2 38.1 12.7
assembly set plate plate_1 pin_a pin_1 pin_b pin_2
XUpdateAssemblies D
WriteStep D step/set_inch.step
WriteIges D iges/set_inch.igs

# One solid of all elementary surfaces.
document M AP203
part knob knob
WriteStep D step/knob_metre.step
WriteIges D iges/knob_metre.igs
save knob brep/knob.brep
param write.iges.brep.mode BRep
document MM AP203
part knob knob
WriteIges D iges/knob_solid_mm.igs
param write.iges.brep.mode Faces

# An open shell.
document MM AP214IS
part shell cup 0 0.6 0.2
WriteStep D step/cup_open.step
WriteIges D iges/cup_open.igs
save shell brep/cup_open.brep

# The set without names: located copies.
compound plate pin_a pin_b all
save all brep/set.brep

# A body that is hidden.
document MM AP214IS
part plate plate
part knob hidden
XSetObjVisibility D 0:1:1:2 0
WriteStep D step/hidden.step

# An assembly over several files: the train refers to the files of an engine and of a waggon, that one to its deck and
# its wheels. The kernel writes one level at a time, so the waggon is written a second time.
cd step/train
document MM AP214IS
part knob engine
part plate waggon
copy plate waggon_b; ttranslate waggon_b 150 0 0
assembly train knob engine_1 plate waggon_1 waggon_b waggon_2
XUpdateAssemblies D
WriteStep D train.step a ""
document MM AP214IS
part pin wheel 0.2 0.2 0.2
part plate deck 0.6 0.4 0.2
assembly waggon plate deck_1 pin_a wheel_1 pin_b wheel_2
XUpdateAssemblies D
WriteStep D waggon.stp a ""
document MM AP214IS
part pin wheel 0.2 0.2 0.2
WriteStep D wheel.stp
cd ../..

# The kernel writes the user's name into files.
foreach file [glob step/*.step step/train/*.st* iges/*.igs] {
  set stream [open $file]
  set text [read $stream]
  close $stream
  regsub -all {PERSON\('[^']*','[^']*','[^']*'} $text "PERSON('velbase','velbase',''" text
  set stream [open $file w]
  puts -nonewline $stream $text
  close $stream
}
exit
