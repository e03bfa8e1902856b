# Turns the plain words of the header's comments into Doxygen's: nothing in them is a command or a tag of its own, and
# each thing that a block tells begins a line.
# Text that is set off is shown as it stands.
/^ \*     /b
/^ \*/ {
    s/\\/\\\\/g
    s/[<#%]/\\&/g
    s/^ \* *out: /Room at `out`: /
    s/(Room at `out`|Result|Failure and not there|Failure|Not there|Session|Blocks): /<br>\n<b>\1:<\/b> /g
}
