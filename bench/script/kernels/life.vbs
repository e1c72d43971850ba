Sub Main()
if not parentform.checkforevents then err.raise 1001
DIM now(65, 65)
if not parentform.checkforevents then err.raise 1001
DIM later(65, 65)
if not parentform.checkforevents then err.raise 1001
for y = 0 to 65
if not parentform.checkforevents then err.raise 1001
for x = 0 to 65
if not parentform.checkforevents then err.raise 1001
now(x, y) = 0
if not parentform.checkforevents then err.raise 1001
later(x, y) = 0
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
for y = 1 to 64
if not parentform.checkforevents then err.raise 1001
for x = 1 to 64
if not parentform.checkforevents then err.raise 1001
now(x, y) = (x * 7 + y * 13 + x * y) mod 7 mod 2
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
for turn = 1 to 60
if not parentform.checkforevents then err.raise 1001
for y = 1 to 64
if not parentform.checkforevents then err.raise 1001
for x = 1 to 64
if not parentform.checkforevents then err.raise 1001
n = now(x - 1, y - 1) + now(x, y - 1) + now(x + 1, y - 1) + now(x - 1, y) + now(x + 1, y) + now(x - 1, y + 1) + now(x, y + 1) + now(x + 1, y + 1)
if not parentform.checkforevents then err.raise 1001
later(x, y) = 0
if not parentform.checkforevents then err.raise 1001
IF n = 3 THEN
if not parentform.checkforevents then err.raise 1001
later(x, y) = 1
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
IF n = 2 THEN
if not parentform.checkforevents then err.raise 1001
later(x, y) = now(x, y)
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
for y = 1 to 64
if not parentform.checkforevents then err.raise 1001
for x = 1 to 64
if not parentform.checkforevents then err.raise 1001
now(x, y) = later(x, y)
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
count = 0
if not parentform.checkforevents then err.raise 1001
for y = 1 to 64
if not parentform.checkforevents then err.raise 1001
for x = 1 to 64
if not parentform.checkforevents then err.raise 1001
count = count + now(x, y)
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
parentform.PrintString count
if not parentform.checkforevents then err.raise 1001
End Sub
