Sub Main()
if not parentform.checkforevents then err.raise 1001
puzzle = "030070000600195000098000060800060003400803001700020006060000280000419005000080079"
if not parentform.checkforevents then err.raise 1001
DIM grid(80)
if not parentform.checkforevents then err.raise 1001
for i = 0 to 80
if not parentform.checkforevents then err.raise 1001
grid(i) = ASC(MID(puzzle, i + 1, 1)) - 48
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
solved = 0
if not parentform.checkforevents then err.raise 1001
tries = 0
if not parentform.checkforevents then err.raise 1001
solve grid, 0, solved, tries
if not parentform.checkforevents then err.raise 1001
parentform.PrintString solved & " " & tries
if not parentform.checkforevents then err.raise 1001
End Sub

Sub solve(grid, place, solved, tries)
if not parentform.checkforevents then err.raise 1001
IF place = 81 THEN
if not parentform.checkforevents then err.raise 1001
solved = solved + 1
if not parentform.checkforevents then err.raise 1001
ELSE
if not parentform.checkforevents then err.raise 1001
IF grid(place) > 0 THEN
if not parentform.checkforevents then err.raise 1001
solve grid, place + 1, solved, tries
if not parentform.checkforevents then err.raise 1001
ELSE
if not parentform.checkforevents then err.raise 1001
row = place \ 9
if not parentform.checkforevents then err.raise 1001
column = place mod 9
if not parentform.checkforevents then err.raise 1001
box = (row \ 3) * 27 + (column \ 3) * 3
if not parentform.checkforevents then err.raise 1001
for digit = 1 to 9
if not parentform.checkforevents then err.raise 1001
free = 1
if not parentform.checkforevents then err.raise 1001
for i = 0 to 8
if not parentform.checkforevents then err.raise 1001
IF grid(row * 9 + i) = digit THEN
if not parentform.checkforevents then err.raise 1001
free = 0
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
IF grid(i * 9 + column) = digit THEN
if not parentform.checkforevents then err.raise 1001
free = 0
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
for y = box to box + 18 step 9
if not parentform.checkforevents then err.raise 1001
for x = y to y + 2
if not parentform.checkforevents then err.raise 1001
IF grid(x) = digit THEN
if not parentform.checkforevents then err.raise 1001
free = 0
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
IF free = 1 THEN
if not parentform.checkforevents then err.raise 1001
tries = tries + 1
if not parentform.checkforevents then err.raise 1001
grid(place) = digit
if not parentform.checkforevents then err.raise 1001
solve grid, place + 1, solved, tries
if not parentform.checkforevents then err.raise 1001
grid(place) = 0
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
End Sub
