Sub Main()
if not parentform.checkforevents then err.raise 1001
DIM row(20)
if not parentform.checkforevents then err.raise 1001
found = 0
if not parentform.checkforevents then err.raise 1001
place row, 1, 9, found
if not parentform.checkforevents then err.raise 1001
parentform.PrintString found
if not parentform.checkforevents then err.raise 1001
End Sub

Sub place(row, column, size, found)
if not parentform.checkforevents then err.raise 1001
IF column > size THEN
if not parentform.checkforevents then err.raise 1001
found = found + 1
if not parentform.checkforevents then err.raise 1001
ELSE
if not parentform.checkforevents then err.raise 1001
for r = 1 to size
if not parentform.checkforevents then err.raise 1001
free = 1
if not parentform.checkforevents then err.raise 1001
for c = 1 to column - 1
if not parentform.checkforevents then err.raise 1001
IF row(c) = r OR row(c) - r = column - c OR r - row(c) = column - c THEN
if not parentform.checkforevents then err.raise 1001
free = 0
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
IF free = 1 THEN
if not parentform.checkforevents then err.raise 1001
row(column) = r
if not parentform.checkforevents then err.raise 1001
place row, column + 1, size, found
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
End Sub
