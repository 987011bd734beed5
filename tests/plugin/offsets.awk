# Turns the golden table of records into C constants: size of each record, offset of each field.
/^_/ { record = substr($1, 2); printf "enum { %s_size = %d };\n", record, $2 }
/^ / && $3 != "-" { printf "enum { %s_%s = %d };\n", record, $3, $1 }
