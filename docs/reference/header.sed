# Converts the header's comments for Doxygen: none of their characters is a command or a tag, and each label begins a
# line. Indented lines are shown unchanged.
/^ \*     /b
/^ \*/ {
    s/\\/\\\\/g
    s/[<#%]/\\&/g
    s/^ \* *out: /Buffer `out`: /
    s/(Buffer `out`|Result|Failure or absent|Failure|Absent|Session|Blocks): /<br>\n<b>\1:<\/b> /g
}
