Sub Main()
if not parentform.checkforevents then err.raise 1001
DIM list(1200)
if not parentform.checkforevents then err.raise 1001
seed = 7
if not parentform.checkforevents then err.raise 1001
for i = 0 to 1200
if not parentform.checkforevents then err.raise 1001
seed = (seed * 171 + 11) mod 30269
if not parentform.checkforevents then err.raise 1001
list(i) = seed
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
sort list, 1200
if not parentform.checkforevents then err.raise 1001
parentform.PrintString list(0) & " " & list(600) & " " & list(1200)
if not parentform.checkforevents then err.raise 1001
End Sub

Sub sort(list, last)
if not parentform.checkforevents then err.raise 1001
for i = last to 1 step -1
if not parentform.checkforevents then err.raise 1001
for j = 0 to i - 1
if not parentform.checkforevents then err.raise 1001
IF list(j) > list(j + 1) THEN
if not parentform.checkforevents then err.raise 1001
keep = list(j)
if not parentform.checkforevents then err.raise 1001
list(j) = list(j + 1)
if not parentform.checkforevents then err.raise 1001
list(j + 1) = keep
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
End Sub
